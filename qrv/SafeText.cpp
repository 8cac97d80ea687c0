#include "qrv/SafeText.h"

#include <span>

namespace quorvel {

bool writeTextSafely(Files& files, const std::filesystem::path& file, std::string_view text) {
    const std::filesystem::path target = files.followLink(file);
    std::filesystem::path beside = target;
    // A name that is taken is left alone: it may be the user's.
    do beside += ".new";
    while (files.exists(beside));

    auto output = files.open(beside, Files::OpenMode::Replace);
    if (!output) return false;
    bool done = output->append(std::as_bytes(std::span(text))) && output->flush();
    output.reset();
    done = done && files.replace(beside, target);
    if (!done) files.remove(beside);
    return done;
}

}  // namespace quorvel
