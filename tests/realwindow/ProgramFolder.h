#pragma once

#include <filesystem>
#include <string_view>

namespace quorvel::scenario {

/// The program installed for one scenario: a fresh folder, and no password stored. Both are gone
/// with this object.
class ProgramFolder {
  public:
    /// `program` is the folder that holds the built program with all that belongs to it.
    explicit ProgramFolder(const std::filesystem::path& program);
    ~ProgramFolder();
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    /// A blank in its name, on purpose.
    static constexpr const char* text = "C:\\Quorvel Test";
    const std::filesystem::path& path() const { return path_; }

    /// An empty text is a password file of 0 bytes.
    void storePassword(std::string_view password) const;

  private:
    std::filesystem::path path_;
};

}  // namespace quorvel::scenario
