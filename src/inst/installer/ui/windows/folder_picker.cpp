#include "inst/installer/ui/folder_picker.h"

#include "streams/installer_log.h"

#include <windows.h>

#include <shobjidl.h>

#include <memory>

namespace nrd::installer::ui {

namespace {

struct release_interface {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class T> using com_ptr = std::unique_ptr<T, release_interface>;

struct free_task_memory {
    void operator()(wchar_t* text) const { CoTaskMemFree(text); }
};

/// The thread's COM for as long as the picker is used. It may have been started already.
class com_apartment {
public:
    com_apartment() : started_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    com_apartment(const com_apartment&) = delete;
    com_apartment& operator=(const com_apartment&) = delete;
    ~com_apartment()
    {
        if (SUCCEEDED(started_)) {
            CoUninitialize();
        }
    }

private:
    HRESULT started_;
};

com_ptr<IFileOpenDialog> make_dialog()
{
    void* made = nullptr;
    if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IFileOpenDialog, &made))) {
        return nullptr;
    }
    return com_ptr<IFileOpenDialog>(static_cast<IFileOpenDialog*>(made));
}

void begin_in(IFileOpenDialog& dialog, const misc::path& start)
{
    misc::path folder_name = start;
    folder_name.make_preferred(); // the shell knows no other separators
    void* found = nullptr;
    if (!start.empty() && SUCCEEDED(SHCreateItemFromParsingName(folder_name.c_str(), nullptr,
                                                                IID_IShellItem, &found))) {
        const com_ptr<IShellItem> folder(static_cast<IShellItem*>(found));
        dialog.SetFolder(folder.get());
    }
}

std::optional<misc::path> result_of(IFileOpenDialog& dialog)
{
    IShellItem* picked = nullptr;
    if (FAILED(dialog.GetResult(&picked))) {
        return std::nullopt;
    }
    const com_ptr<IShellItem> item(picked);
    wchar_t* name = nullptr;
    if (FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &name))) {
        return std::nullopt;
    }
    const std::unique_ptr<wchar_t, free_task_memory> text(name);
    return misc::path(text.get());
}

} // namespace

std::optional<misc::path> pick_folder(const misc::path& start)
{
    const com_apartment apartment;
    const com_ptr<IFileOpenDialog> dialog = make_dialog();
    if (!dialog) {
        installer_log("The system has no folder picker.");
        return std::nullopt;
    }
    FILEOPENDIALOGOPTIONS options = 0;
    dialog->GetOptions(&options);
    dialog->SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM);
    begin_in(*dialog, start);
    if (FAILED(dialog->Show(GetActiveWindow()))) {
        return std::nullopt;
    }
    return result_of(*dialog);
}

} // namespace nrd::installer::ui
