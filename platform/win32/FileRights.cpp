#include "platform/win32/FileRights.h"

#include <cstring>
#include <string>

#include <aclapi.h>

namespace quorvel {

namespace {

constexpr DWORD keptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                 FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED |
                                 FILE_ATTRIBUTE_ENCRYPTED;

}  // namespace

FileRights::AccessList::AccessList(const std::filesystem::path& file) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (::GetNamedSecurityInfoW(file.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                nullptr, &entries, nullptr, &descriptor) != ERROR_SUCCESS)
        return;
    memory.reset(descriptor);
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    isProtected = ::GetSecurityDescriptorControl(descriptor, &control, &revision) != 0 &&
                  (control & SE_DACL_PROTECTED) != 0;
}

bool FileRights::AccessList::operator==(const AccessList& other) const {
    if (entries == nullptr || other.entries == nullptr) return entries == other.entries;
    return isProtected == other.isProtected && entries->AclSize == other.entries->AclSize &&
           std::memcmp(entries, other.entries, entries->AclSize) == 0;
}

FileRights::FileRights(const std::filesystem::path& model)
    : attributes_(::GetFileAttributesW(model.c_str())), accessList_(model) {
    if (attributes_ == INVALID_FILE_ATTRIBUTES) attributes_ = 0;
}

DWORD FileRights::creationFlags() const {
    const DWORD flags = attributes_ & keptAttributes;
    return flags != 0 ? flags : FILE_ATTRIBUTE_NORMAL;
}

bool FileRights::giveTo(const std::filesystem::path& file) const {
    const bool wantsEncryption = (attributes_ & FILE_ATTRIBUTE_ENCRYPTED) != 0;
    if (wantsEncryption && (::GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_ENCRYPTED) == 0)
        return false;
    // A new file has its folder's list, which is mostly the same already; where it is, a share that
    // allows no change of lists is no hindrance.
    if (accessList_.entries == nullptr || AccessList(file) == accessList_) return true;
    std::wstring name = file.native();
    const SECURITY_INFORMATION inheritance = accessList_.isProtected
                                                 ? PROTECTED_DACL_SECURITY_INFORMATION
                                                 : UNPROTECTED_DACL_SECURITY_INFORMATION;
    return ::SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                                   DACL_SECURITY_INFORMATION | inheritance, nullptr, nullptr,
                                   accessList_.entries, nullptr) == ERROR_SUCCESS;
}

}  // namespace quorvel
