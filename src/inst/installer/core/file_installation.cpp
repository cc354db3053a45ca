#include "inst/installer/core/file_installation.h"

#include "inst/installer/core/install_error.h"
#include "inst/installer/core/logged_call.h"
#include "misc/file_system.h"
#include "misc/system_info.h"
#include "streams/installer_log.h"

#include <boost/system/error_code.hpp>
#include <set>
#include <string>

namespace nrd::installer::core {

using installation::fileset;
using installation::fileset_verdict;
using installation::installer_observer;
using installation::package;
using installation::package_verdict;
using installation::spec;
using misc::to_path;
using misc::to_text32;
using misc::to_utf8;

namespace {

/// True for a fileset that is only for those who have the folder that it goes to.
bool lacks_folder(const fileset& f, const misc::path& out)
{
    return f.create_folders() == U"false" && misc::missing(out.parent_path());
}

/// What the log says of the two ways in which one step can fail.
struct failure_words {
    const char* denied;
    const char* failed;
};

void throw_if_failed(const misc::error_code& ec, const failure_words& words,
                     const misc::path& where, installer_observer& observer)
{
    if (!ec) {
        return;
    }
    const bool denied = ec == boost::system::errc::permission_denied;
    const char* const text = denied ? words.denied : words.failed;
    installer_log(text);
    observer.decided(installation::failure_decision{where, misc::error_message(ec)});
    throw install_error(denied ? install_error::not_running_as_admin
                               : install_error::failed_to_copy);
}

void make_folder(const misc::path& folder, const failure_words& words, installer_observer& observer)
{
    const misc::error_code ec = logged_call("create_directories", {folder}, [&](auto& result) {
        misc::create_directories(folder, result);
    });
    throw_if_failed(ec, words, folder, observer);
}

/// What stands at a source, asked for once, since an installation is many small files.
struct source_kind {
    explicit source_kind(const misc::path& in) : type(misc::symlink_status(in).type())
    {
        is_link = type == boost::filesystem::symlink_file;
        if (is_link) {
            type = misc::status(in).type();
        }
    }

    [[nodiscard]] bool is_missing() const
    {
        return type == boost::filesystem::status_error || type == boost::filesystem::file_not_found;
    }

    [[nodiscard]] bool is_folder() const
    {
        return type == boost::filesystem::directory_file && !is_link;
    }

    misc::file_type type; ///< of what a link leads to
    bool is_link = false;
};

misc::error_code copy_one(const misc::path& in, const source_kind& kind, const misc::path& target)
{
    if (kind.is_link) {
        return logged_call("copy_symlink", {in, target},
                           [&](auto& ec) { misc::copy_symlink(in, target, ec); });
    }
    if (kind.type == boost::filesystem::regular_file) {
        return logged_call("copy_file", {in, target},
                           [&](auto& ec) { misc::copy_file(in, target, ec); });
    }
    return logged_call("copy", {in, target}, [&](auto& ec) { misc::copy_special(in, target, ec); });
}

/// Which names in a folder may be folders themselves. To ask for each file that is copied there
/// takes as long as copying a small one: where a name has many spellings, a system knows that it is
/// new only when it has read the whole folder.
class folders_inside {
public:
    explicit folders_inside(const misc::path& folder)
    {
        try {
            for (const misc::path& entry : misc::directory_entries(folder)) {
                if (misc::is_directory(entry)) {
                    add(entry.filename());
                }
            }
        } catch (const misc::filesystem_error&) {
            is_known_ = false;
        }
    }

    void add(const misc::path& name) { names_.insert(key(name)); }
    [[nodiscard]] bool may_contain(const misc::path& name) const
    {
        return !is_known_ || names_.contains(key(name));
    }

private:
    static std::u16string key(const misc::path& name)
    {
        return misc::name_key(misc::to_utf16(to_text32(name)));
    }

    std::set<std::u16string> names_;
    bool is_known_ = true;
};

void copy_single(const misc::path& in, const source_kind& kind, const misc::path& out,
                 bool may_be_folder, installer_observer& observer)
{
    make_folder(out.parent_path(),
                {"Does not have permission to create parent directory.",
                 "Failed to create parent directories."},
                observer);
    const misc::path target = may_be_folder && misc::is_directory(out) ? out / in.filename() : out;
    observer.report({"installing", 0, {to_text32(in.filename())}});
    installer_log("Installing file.");
    throw_if_failed(copy_one(in, kind, target),
                    {"Does not have permission to install file.", "Failed to install file."},
                    target, observer);
}

void copy_entry(const misc::path& in, const source_kind& kind, const misc::path& out,
                bool may_be_folder, installer_observer& observer);

void copy_directory(const misc::path& in, const misc::path& out, installer_observer& observer)
{
    installer_log("Is a directory");
    make_folder(
        out, {"Does not have permission to create directories.", "Failed to create directories."},
        observer);
    folders_inside there(out);
    for (const misc::path& entry : misc::directory_entries(in)) {
        const misc::path name = entry.filename();
        const source_kind kind(entry);
        copy_entry(entry, kind, out / name, there.may_contain(name), observer);
        if (kind.is_folder()) {
            there.add(name); // a file with this name in another spelling may follow
        }
    }
}

void copy_entry(const misc::path& in, const source_kind& kind, const misc::path& out,
                bool may_be_folder, installer_observer& observer)
{
    if (kind.is_missing()) {
        return;
    }
    installer_log("File in: " + to_utf8(in));
    installer_log("File out: " + to_utf8(out));
    if (kind.is_folder()) {
        copy_directory(in, out, observer);
    } else {
        copy_single(in, kind, out, may_be_folder, observer);
    }
}

/// Ends the run if the observer does not let it go on.
void ask(installer_observer& observer, const installation::install_event& event,
         const misc::path& where, const std::string& reason, std::int32_t error_code)
{
    if (!observer.report(event)) {
        observer.decided(installation::failure_decision{where, reason});
        throw install_error(error_code);
    }
}

} // namespace

package_verdict judge_package(const package& pack)
{
    if (pack.os == "mac") {
        return package_verdict::other_system;
    }
    const std::string own_bits = misc::is_64bit_windows() ? "64" : "32";
    return pack.bits == own_bits || pack.bits == "all" ? package_verdict::installed
                                                       : package_verdict::other_word_size;
}

std::vector<fileset> filesets_to_copy(const package& pack, const spec& s)
{
    std::vector<fileset> filesets;
    for (const fileset& f : pack.filesets) {
        const misc::path out = to_path(std::u32string_view(s.expand(f.out())));
        if (!out.empty() && !lacks_folder(f, out)) {
            filesets.emplace_back(s.expand(f.in()), to_text32(out), f.create_folders());
        }
    }
    return filesets;
}

void install_packs(const std::vector<package>& packages, const spec& s,
                   installer_observer& observer)
{
    installer_log("Install packs start.");
    for (const package& pack : packages) {
        const package_verdict verdict = judge_package(pack);
        observer.decided(installation::package_decision{pack.name, pack.os, pack.bits, verdict});
        if (verdict == package_verdict::installed) {
            install_pack(pack, s, observer);
        }
    }
}

void install_pack(const package& pack, const spec& s, installer_observer& observer)
{
    installer_log("Install pack start.");
    install_files(pack.filesets, s, observer);
}

void install_files(const std::vector<fileset>& filesets, const spec& s,
                   installer_observer& observer)
{
    installer_log("Install file start.");
    for (const fileset& f : filesets) {
        install_file(f, s, observer);
    }
}

void install_file(const fileset& f, const spec& s, installer_observer& observer)
{
    const misc::path in = to_path(std::u32string_view(s.expand(f.in())));
    const misc::path out = to_path(std::u32string_view(s.expand(f.out())));
    const auto decided = [&](fileset_verdict verdict) {
        observer.decided(installation::fileset_decision{in, out, verdict});
    };
    installer_log("Install file in: " + to_utf8(in));
    if (out.empty()) {
        installer_log("Install file out: empty");
        decided(fileset_verdict::no_destination);
        return;
    }
    if (lacks_folder(f, out)) {
        installer_log("Folder does not exist.");
        decided(fileset_verdict::parent_missing);
        return;
    }
    installer_log("Install file out: " + to_utf8(out));
    if (misc::missing(in)) {
        installer_log("In file does not exist.");
        decided(fileset_verdict::source_missing);
        ask(observer, {"in_file_does_not_exist", 0, {f.in()}}, in, "The source does not exist",
            install_error::in_file_does_not_exist);
        return;
    }
    decided(fileset_verdict::copied);
    const std::string both = to_utf8(in) + " , " + to_utf8(out);
    try {
        installer_log("Copy recursive: " + both + " begin:");
        copy_recursive(in, out, observer);
        installer_log("Copy recursive: " + both + " complete.");
    } catch (const misc::filesystem_error& error) {
        installer_log("Failed to copy.");
        ask(observer, {"failed_to_copy", 0, {f.in(), f.out()}}, in, misc::describe(error),
            install_error::failed_to_copy);
    }
}

void copy_recursive(const misc::path& in, const misc::path& out, installer_observer& observer)
{
    copy_entry(in, source_kind(in), out, true, observer);
}

} // namespace nrd::installer::core
