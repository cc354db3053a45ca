#include "misc/shell.h"

#include <memory>
#include <windows.h>

#include <objbase.h>
#include <shlobj.h>

namespace nrd::misc {

namespace {

struct com_apartment {
    com_apartment() { CoInitialize(nullptr); }
    ~com_apartment() { CoUninitialize(); }
    com_apartment(const com_apartment&) = delete;
    com_apartment& operator=(const com_apartment&) = delete;
};

struct release {
    void operator()(IUnknown* object) const { object->Release(); }
};

template <class Interface> using com_ptr = std::unique_ptr<Interface, release>;

class com_link final : public shell_link {
public:
    com_link()
    {
        void* raw = nullptr;
        if (SUCCEEDED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER,
                                       IID_IShellLinkW, &raw))) {
            link_.reset(static_cast<IShellLinkW*>(raw));
        }
    }

    [[nodiscard]] bool created() const { return link_ != nullptr; }

    bool save(const path& link, const text32& destination) override
    {
        link_->SetPath(to_path(std::u32string_view(destination)).c_str());
        link_->SetDescription(L"");
        void* raw = nullptr;
        if (FAILED(link_->QueryInterface(IID_IPersistFile, &raw))) {
            return false;
        }
        const com_ptr<IPersistFile> file(static_cast<IPersistFile*>(raw));
        return SUCCEEDED(file->Save(link.c_str(), TRUE));
    }

private:
    com_apartment apartment_; // outlives the link
    com_ptr<IShellLinkW> link_;
};

} // namespace

std::unique_ptr<shell_link> shell_link::make()
{
    auto link = std::make_unique<com_link>();
    return link->created() ? std::move(link) : nullptr;
}

} // namespace nrd::misc
