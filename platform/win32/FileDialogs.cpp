#include "platform/win32/FileDialogs.h"

#include "core/Errors.h"
#include "platform/win32/ControlParts.h"
#include "platform/win32/Handles.h"

#include <shobjidl.h>

namespace quorvel {

namespace {

constexpr COMDLG_FILTERSPEC sheetType{L"Gradesheet", L"*.qrv"};
constexpr const wchar_t* sheetEnding = L"qrv";

UniqueInterface<IFileDialog> createFileDialog(REFCLSID kind) {
    IFileDialog* dialog = nullptr;
    if (FAILED(::CoCreateInstance(kind, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&dialog))))
        throw Error("The file dialog could not be opened.");
    return UniqueInterface<IFileDialog>(dialog);
}

/// Windows would begin in the folder that was used last.
void beginIn(IFileDialog& dialog, const std::filesystem::path& folder) {
    IShellItem* item = nullptr;
    if (FAILED(::SHCreateItemFromParsingName(folder.c_str(), nullptr, IID_PPV_ARGS(&item)))) return;
    const UniqueInterface<IShellItem> owned(item);
    dialog.SetFolder(item);
}

std::optional<std::filesystem::path> chosenFile(IFileDialog& dialog) {
    IShellItem* item = nullptr;
    if (FAILED(dialog.GetResult(&item))) return std::nullopt;
    const UniqueInterface<IShellItem> owned(item);
    wchar_t* path = nullptr;
    if (FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &path))) return std::nullopt;
    const UniqueTaskText ownedPath(path);
    return path;
}

// Windows' own interface: nothing is ended through it.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Notes what stands in the name box when the dialog takes it. Lives on the stack of the one who
/// shows the dialog.
class TypedName final : public IFileDialogEvents {
  public:
    const std::filesystem::path& name() const { return name_; }

    HRESULT STDMETHODCALLTYPE OnFileOk(IFileDialog* dialog) override {
        wchar_t* name = nullptr;
        if (FAILED(dialog->GetFileName(&name))) return S_OK;
        const UniqueTaskText owned(name);
        name_ = name;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID kind, void** object) override {
        const bool known = kind == IID_IUnknown || kind == IID_IFileDialogEvents;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE OnFolderChanging(IFileDialog*, IShellItem*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnFolderChange(IFileDialog*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnSelectionChange(IFileDialog*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShareViolation(IFileDialog*, IShellItem*,
                                               FDE_SHAREVIOLATION_RESPONSE*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE OnTypeChange(IFileDialog*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnOverwrite(IFileDialog*, IShellItem*,
                                          FDE_OVERWRITE_RESPONSE*) override {
        return E_NOTIMPL;
    }

  private:
    std::filesystem::path name_;
};

#pragma GCC diagnostic pop

std::optional<std::filesystem::path> chooseFile(IFileDialog& dialog, HWND owner,
                                                const std::wstring& title,
                                                const std::filesystem::path& startFolder,
                                                FILEOPENDIALOGOPTIONS wanted) {
    FILEOPENDIALOGOPTIONS usual = 0;
    dialog.GetOptions(&usual);
    dialog.SetOptions(usual | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR | FOS_PATHMUSTEXIST | wanted);
    dialog.SetTitle(title.c_str());
    dialog.SetFileTypes(1, &sheetType);
    dialog.SetDefaultExtension(sheetEnding);
    beginIn(dialog, startFolder);
    const CentredDialogs centred;
    if (FAILED(dialog.Show(owner))) return std::nullopt;
    return chosenFile(dialog);
}

/// Windows adds the ending of sheets behind another one, too, that it does not know. The name is
/// then what was typed, unless there is such a file: nobody was asked about that one.
std::filesystem::path asTyped(const std::filesystem::path& chosen,
                              const std::filesystem::path& typed) {
    std::filesystem::path plain = chosen.parent_path() / typed.filename();
    const bool wasAdded =
        typed.has_extension() && chosen.native() == plain.native() + L'.' + sheetEnding;
    if (!wasAdded || ::GetFileAttributesW(plain.c_str()) != INVALID_FILE_ATTRIBUTES) return chosen;
    return plain;
}

}  // namespace

std::optional<std::filesystem::path> chooseFileToOpen(HWND owner, const std::wstring& title,
                                                      const std::filesystem::path& startFolder) {
    const UniqueInterface<IFileDialog> dialog = createFileDialog(CLSID_FileOpenDialog);
    return chooseFile(*dialog, owner, title, startFolder, FOS_FILEMUSTEXIST);
}

std::optional<std::filesystem::path> chooseFileToSave(HWND owner, const std::wstring& title,
                                                      const std::filesystem::path& startFolder) {
    TypedName typed;
    const UniqueInterface<IFileDialog> dialog = createFileDialog(CLSID_FileSaveDialog);
    DWORD listener = 0;
    dialog->Advise(&typed, &listener);
    // A file that cannot be written is refused by Windows, which says why.
    const auto chosen =
        chooseFile(*dialog, owner, title, startFolder, FOS_OVERWRITEPROMPT | FOS_NOREADONLYRETURN);
    dialog->Unadvise(listener);
    if (!chosen) return std::nullopt;
    return asTyped(*chosen, typed.name());
}

}  // namespace quorvel
