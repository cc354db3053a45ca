#include "inst/installer/core/uninstall_data.h"

#include "misc/file_system.h"
#include "misc/registry.h"
#include "streams/installer_log.h"

#include <array>
#include <utility>

namespace nrd::installer::core {

using installation::fileset;
using installation::package;
using installation::reg_key;
using installation::spec;
using misc::to_path;
using misc::to_text32;
using misc::to_utf8;

namespace {

misc::text32 in_quotes(const misc::text32& text)
{
    return U"\"" + text + U"\"";
}

/// Settles one fileset of the uninstall spec; false if it is to go, and what takes its place has
/// been added to `found`.
bool settle_fileset(const spec& u, fileset& f, std::deque<fileset>& found)
{
    const misc::path in = to_path(std::u32string_view(u.expand(f.in())));
    misc::path out = to_path(std::u32string_view(u.expand(f.out())));
    if (out.empty()) {
        return false;
    }
    // The status is asked of the text as it stands, so a source given through a variable is never
    // seen as a folder and gets a file name added.
    const misc::path raw = to_path(std::u32string_view(f.in()));
    if (!misc::is_directory(raw)) {
        out /= raw.filename();
    } else if (!misc::missing(out.parent_path())) {
        expand_directory(u, found, in, out);
        return false;
    }
    f.set_out(to_text32(out));
    return true;
}

void settle_filesets(const spec& u, std::vector<fileset>& filesets)
{
    // A folder may hold very many files: they are moved once, when their number is known.
    std::deque<fileset> found;
    // From the last to the first: what the last folder turns into comes first behind the others.
    for (std::size_t i = filesets.size(); i-- > 0;) {
        if (!settle_fileset(u, filesets[i], found)) {
            filesets.erase(filesets.begin() + static_cast<std::ptrdiff_t>(i));
        }
    }
    filesets.reserve(filesets.size() + found.size());
    for (; !found.empty(); found.pop_front()) {
        filesets.push_back(std::move(found.front()));
    }
}

} // namespace

void add_uninstall_keys(spec& work, const misc::path& final_path)
{
    const misc::text32 key = misc::uninstall_key(work.find_var(U"APP_NAME").value);
    const misc::text32 final_text = to_text32(final_path);
    const auto add = [&](const char* name, const misc::text32& data) {
        work.reg_keys.push_back(reg_key{key, name, data, {}});
    };
    add("UninstallString", in_quotes(final_text + U"uninstaller.dir\\uninstall.bat"));
    // The backslash at the end stands inside the quotation marks.
    add("InstallLocation", in_quotes(final_text));
    add("DisplayName", work.find_var(U"APP_NAME").value);
    add("DisplayVersion", work.find_var(U"APP_VERSION").value);
    add("Publisher", work.find_var(U"PUBLISHER").value);
    if (work.has_var(U"APP_ICON")) {
        add("DisplayIcon", in_quotes(work.var_value(U"APP_ICON")));
    }
}

spec create_uninstall_spec(const spec& work, const misc::text32& final_path)
{
    spec u = work;
    u.set_var(U"APP_INSTALL_PATH", final_path);
    for (package& pack : u.packages) {
        settle_filesets(u, pack.filesets);
    }
    return u;
}

void expand_directory(const spec& s, std::deque<fileset>& filesets, const misc::path& in,
                      const misc::path& out)
{
    if (misc::missing(in)) {
        installer_log("Path does not exist.");
        return;
    }
    for (const misc::path& entry : misc::directory_entries(in)) {
        const misc::path name = entry.filename();
        const misc::file_type type = misc::status(entry).type();
        if (type == boost::filesystem::regular_file) {
            installer_log("Regular file.");
            filesets.emplace_back(to_text32(in / name), to_text32(out / name), misc::text32());
        } else if (type == boost::filesystem::directory_file) {
            installer_log("Directory file.");
            expand_directory(s, filesets, entry, out / name);
        }
    }
}

void create_uninstall_bat(const misc::path& final_path)
{
    const misc::path folder = final_path / "uninstaller.dir";
    const std::string uninstaller_folder = to_utf8(misc::absolute(folder));
    const std::string install_folder = to_utf8(misc::absolute(final_path));
    const std::array lines = {
        std::string("@echo off"),
        std::string("chcp 65001"),
        std::string("mkdir %TMP%\\tvl_uninstall"),
        "xcopy \"" + uninstaller_folder + "\" %TMP%\\tvl_uninstall\\ /E /H /Y /q /r",
        std::string("cd %TMP%\\tvl_uninstall"),
        std::string("Start /WAIT %TMP%\\tvl_uninstall\\uninstaller.exe --nrd"),
        std::string("if %errorlevel% equ 0 ("),
        "\trmdir /s /q \"" + install_folder + "\"",
        std::string(")"),
        std::string("cd .."),
        std::string("rmdir /s /q %TMP%\\tvl_uninstall"),
    };
    std::ofstream file = misc::open_for_writing(folder / "uninstall.bat");
    for (const std::string& line : lines) {
        file << line << '\n';
    }
}

} // namespace nrd::installer::core
