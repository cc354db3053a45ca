#include "inst/installer/core/file_installation.h"

#include "inst/installer/core/install_error.h"
#include "inst/installer/core/logged_call.h"
#include "misc/file_system.h"
#include "misc/system_info.h"
#include "streams/installer_log.h"

#include <boost/system/error_code.hpp>

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

misc::error_code copy_one(const misc::path& in, const misc::path& target)
{
    if (misc::symlink_status(in).type() == boost::filesystem::symlink_file) {
        return logged_call("copy_symlink", {in, target},
                           [&](auto& ec) { misc::copy_symlink(in, target, ec); });
    }
    if (misc::status(in).type() == boost::filesystem::regular_file) {
        return logged_call("copy_file", {in, target},
                           [&](auto& ec) { misc::copy_file(in, target, ec); });
    }
    return logged_call("copy", {in, target}, [&](auto& ec) { misc::copy_special(in, target, ec); });
}

void copy_directory(const misc::path& in, const misc::path& out, installer_observer& observer)
{
    installer_log("Is a directory");
    make_folder(
        out, {"Does not have permission to create directories.", "Failed to create directories."},
        observer);
    for (const misc::path& entry : misc::directory_entries(in)) {
        copy_recursive(entry, out / entry.filename(), observer);
    }
}

void copy_single(const misc::path& in, const misc::path& out, installer_observer& observer)
{
    make_folder(out.parent_path(),
                {"Does not have permission to create parent directory.",
                 "Failed to create parent directories."},
                observer);
    const misc::path target = misc::is_directory(out) ? out / in.filename() : out;
    observer.report({"installing", 0, {to_text32(in.filename())}});
    installer_log("Installing file.");
    throw_if_failed(copy_one(in, target),
                    {"Does not have permission to install file.", "Failed to install file."},
                    target, observer);
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
    if (misc::missing(in)) {
        return;
    }
    installer_log("File in: " + to_utf8(in));
    installer_log("File out: " + to_utf8(out));
    const bool is_link = misc::symlink_status(in).type() == boost::filesystem::symlink_file;
    if (misc::is_directory(in) && !is_link) {
        copy_directory(in, out, observer);
    } else {
        copy_single(in, out, observer);
    }
}

} // namespace nrd::installer::core
