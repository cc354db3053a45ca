#include "misc/host_file_system.h"

#include "misc/file_system.h"
#include "misc/posix/machine.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <cerrno>
#include <climits>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace nrd::misc {

namespace fs = boost::filesystem;

namespace {

// The drive that stands for the whole host, so that programs and packages may lie anywhere.
constexpr char host_drive = 'z';
constexpr const char* network_folder = "network";

struct close_directory {
    void operator()(DIR* directory) const { closedir(directory); }
};

bool exists(const std::string& host)
{
    struct stat facts;
    return lstat(host.c_str(), &facts) == 0;
}

bool is_ascii_only(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The entry of `folder` that Windows would take for `name`; `name` itself if there is none.
std::string find_without_case(const std::string& folder, const std::string& name)
{
    const std::unique_ptr<DIR, close_directory> directory(
        opendir(folder.empty() ? "." : folder.c_str()));
    const std::u16string wanted = name_key(to_utf16(name));
    const bool is_ascii = is_ascii_only(name);
    while (directory != nullptr) {
        const dirent* const entry = readdir(directory.get());
        if (entry == nullptr) {
            break;
        }
        const std::string_view found = entry->d_name;
        // Most names are told apart without being upper-cased as Windows does it.
        if (is_ascii && found.size() != name.size() && is_ascii_only(found)) {
            continue;
        }
        if (name_key(to_utf16(found)) == wanted) {
            return std::string(found);
        }
    }
    return name;
}

std::string join(const std::string& folder, const std::string& name)
{
    return folder.empty() || folder.back() == '/' ? folder + name : folder + '/' + name;
}

std::vector<std::string> names_of(const path& relative)
{
    std::vector<std::string> names;
    for (const std::string& name : split(replace_char(to_utf8(relative), '\\', '/'), '/')) {
        if (name == "..") {
            // Windows takes the name before away without asking whether it is there.
            if (!names.empty()) {
                names.pop_back();
            }
        } else if (!name.empty() && name != ".") {
            names.push_back(name);
        }
    }
    return names;
}

/// True if the path cannot be followed from the current directory down: "C:x" or "..\\x".
bool needs_current_path(const path& p)
{
    return p.has_root_name() ? !p.has_root_directory() : to_text32(p).find(U"..") != text32::npos;
}

/// The system folders as a 32-bit process on a 64-bit Windows sees them.
void redirect_system_folder(const path& root_name, std::vector<std::string>& names)
{
    const auto is = [&names](std::size_t index, std::u16string_view name) {
        return name_key(to_utf16(names[index])) == name;
    };
    const bool drive_c = name_key(root_name.native()) == u"C:";
    if (this_machine().bits != 64 || !drive_c || names.size() < 2 || !is(0, u"WINDOWS")) {
        return;
    }
    if (is(1, u"SYSNATIVE")) {
        names[1] = "System32";
    } else if (is(1, u"SYSTEM32")) {
        names[1] = "SysWOW64";
    }
}

bool is_server(const path& root_name)
{
    return !root_name.empty() && root_name.native().back() != u':';
}

/// Where the names of a path are looked for: a drive's folder, the one in which each server of the
/// network is a folder, or "" for the current directory.
std::string base_folder(const path& root_name, bool has_root_directory)
{
    const std::string name = to_utf8(root_name);
    if (name.empty() && !has_root_directory) {
        return {};
    }
    if (is_server(root_name)) {
        return (this_machine().folder / network_folder).string();
    }
    const path here = name.empty() ? from_host(fs::current_path()).root_name() : root_name;
    std::string drive = to_utf8(here);
    drive.pop_back();
    to_lower(drive);
    return drive == std::string(1, host_drive) ? "/" : (this_machine().folder / drive).string();
}

std::string resolve(std::string folder, const std::vector<std::string>& names)
{
    std::string parent;
    std::string whole = folder;
    for (const std::string& name : names) {
        parent = whole;
        whole = join(whole, name);
    }
    if (exists(whole)) {
        return whole;
    }
    if (names.size() > 1 && exists(parent)) {
        return join(parent, find_without_case(parent, names.back()));
    }
    bool found = true;
    for (const std::string& name : names) {
        std::string next = join(folder, name);
        if (found && !exists(next)) {
            next = join(folder, find_without_case(folder, name));
            found = exists(next);
        }
        folder = std::move(next);
    }
    return folder;
}

/// Windows has characters that cannot stand in a name; a host with other rules would take them.
bool is_name_allowed(const path& p)
{
    const text32 text = to_text32(p.relative_path());
    return std::none_of(text.begin(), text.end(), [](char32_t c) {
        return c < 0x20 || std::u32string_view(U"<>:\"|?*").find(c) != std::u32string_view::npos;
    });
}

/// The machine's list holds `p`, or what `p` lies in, or (`or_inside`) something inside of `p`.
bool lists(const std::vector<std::string>& list, const path& p, bool or_inside)
{
    if (list.empty()) {
        return false;
    }
    const std::u16string wanted = path_key(p);
    return std::any_of(list.begin(), list.end(), [&](const std::string& listed) {
        const std::u16string each = path_key(to_path(std::string_view(listed)));
        return is_or_lies_in(wanted, each) || (or_inside && lies_in(each, wanted));
    });
}

} // namespace

fs::path to_host(const path& p)
{
    if (p.empty()) {
        return {};
    }
    const path whole = needs_current_path(p) ? absolute(p) : p;
    const path root_name = whole.root_name();
    std::vector<std::string> names = names_of(whole.relative_path());
    redirect_system_folder(root_name, names);
    if (is_server(root_name)) {
        names.insert(names.begin(), to_utf8(root_name).substr(2));
    }
    const std::string host = resolve(base_folder(root_name, whole.has_root_directory()), names);
    return host.empty() ? fs::path(".") : fs::path(host);
}

path from_host(const fs::path& host)
{
    const fs::path whole = fs::absolute(host).lexically_normal();
    const fs::path machine_folder = this_machine().folder.string();
    const fs::path relative = whole.lexically_relative(machine_folder);
    const std::string drive = relative.empty() ? std::string() : relative.begin()->string();
    std::string text = std::string(1, host_drive) + ":" + whole.string();
    if (drive.size() == 1 && drive != ".") {
        text = drive + ":\\" + relative.string().substr(std::min<std::size_t>(2, relative.size()));
    }
    if (drive == network_folder) {
        text = "\\" + relative.string().substr(drive.size());
    }
    text[0] = static_cast<char>(upper_case(static_cast<char16_t>(text[0])));
    return to_path(std::string_view(replace_char(text, '/', '\\')));
}

path from_host_name(const fs::path& name)
{
    return to_path(std::string_view(name.native()));
}

fs::path as_error_path(const path& p)
{
    return to_utf8(p);
}

std::string error_path_text(const fs::path& p)
{
    return p.string();
}

error_code change_refusal(const path& p)
{
    const machine& here = this_machine();
    if (lists(here.denied, p, false) || lists(here.locked, p, true)) {
        return make_error_code(boost::system::errc::permission_denied);
    }
    return is_name_allowed(p) ? error_code()
                              : make_error_code(boost::system::errc::invalid_argument);
}

error_code overwrite_refusal(const path& p, const fs::path& host)
{
    // The superuser could write to it all the same.
    struct stat facts;
    const bool read_only =
        stat(host.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) && (facts.st_mode & S_IWUSR) == 0;
    return read_only ? make_error_code(boost::system::errc::permission_denied) : change_refusal(p);
}

error_code name_refusal(const path& p)
{
    return to_host(p).filename().native().size() <= NAME_MAX
               ? error_code()
               : make_error_code(boost::system::errc::filename_too_long);
}

error_code write_refusal(const path& p)
{
    // A drive's folder is made when something is put on the drive.
    fs::path place = to_host(p);
    for (error_code ec; place.has_parent_path() && !fs::exists(place, ec);) {
        place = place.parent_path();
    }
    const bool may_write = faccessat(AT_FDCWD, place.c_str(), W_OK, AT_EACCESS) == 0;
    return may_write ? error_code() : error_code(errno, boost::system::system_category());
}

error_code move_refusal(const path& p)
{
    return write_refusal(p.parent_path());
}

void make_removable(const path&)
{
    // Whether a file may be removed is a matter of its folder alone.
}

std::string error_message(const error_code& ec)
{
    return ec.message();
}

} // namespace nrd::misc
