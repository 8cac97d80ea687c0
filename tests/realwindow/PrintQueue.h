#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/scenario/Driver.h"

namespace quorvel::scenario {

/// The print queue of the bench, seen from outside: what went into it and what came out.
class PrintQueue {
  public:
    /// `folder` is where the queue keeps everything; empty where there is no printer.
    explicit PrintQueue(std::filesystem::path folder);

    /// The jobs that were handed to the queue since this object was made. Waits for those that are
    /// on their way; throws ScenarioError when one does not come out.
    std::vector<PrintedJob> jobs() const;

  private:
    int jobsTaken() const;
    PrintedJob readJob(int number) const;

    std::filesystem::path folder_;
    int earlierJobs_ = 0;
    std::string firstDate_;
};

}  // namespace quorvel::scenario
