#pragma once

#include <filesystem>
#include <memory>

#include <windows.h>

namespace quorvel {

/// What Windows keeps of a file beside its bytes: attributes, encryption, access list.
class FileRights {
  public:
    /// Those of `model`; those of any new file where it is none.
    explicit FileRights(const std::filesystem::path& model);

    /// The attributes for CreateFileW.
    DWORD creationFlags() const;
    /// Gives the access list to a file that was created with these flags. False where it came out
    /// less protected.
    bool giveTo(const std::filesystem::path& file) const;

  private:
    struct LocalMemory {
        void operator()(void* memory) const { ::LocalFree(memory); }
    };
    /// An access list inside of what holds its memory.
    struct AccessList {
        explicit AccessList(const std::filesystem::path& file);
        bool operator==(const AccessList& other) const;

        PACL entries = nullptr;  // none on a disk that keeps no access lists
        bool isProtected = false;
        std::unique_ptr<void, LocalMemory> memory;
    };

    DWORD attributes_;
    AccessList accessList_;
};

}  // namespace quorvel
