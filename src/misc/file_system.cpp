#include "misc/file_system.h"

#include "misc/planned_changes.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>

namespace nrd::misc {

namespace fs = boost::filesystem;

namespace {

/// The error with the machine's own path in it, since a host path would mean nothing to a reader.
filesystem_error error_at(const char* operation, const path& p, const error_code& ec)
{
    return {operation, as_error_path(p), ec};
}

/// True if the change may be tried; otherwise `ec` says why not.
bool may_change(const path& p, error_code& ec)
{
    ec = change_refusal(p);
    return !ec;
}

bool may_overwrite(const path& p, const fs::path& host, error_code& ec)
{
    ec = overwrite_refusal(p, host);
    return !ec;
}

/// For a planned change: the failure that the real one would meet at once.
error_code missing_source(const path& from)
{
    return misc::symlink_status(from).type() > fs::file_not_found
               ? error_code()
               : make_error_code(boost::system::errc::no_such_file_or_directory);
}

error_code foreseen_move_refusal(const planned_changes& plan, const path& from, const path& to)
{
    error_code ec = missing_source(from);
    if (!ec) {
        ec = change_refusal(from);
    }
    if (!ec && !plan.status(from)) {
        ec = move_refusal(from);
    }
    return ec ? ec : foreseen_refusal(to, misc::symlink_status(from).type());
}

/// Why something could not be made at `place`, or below it if `is_itself` is false. Something is
/// there already.
error_code refusal_at(const path& place, bool is_itself, file_type made)
{
    if (!misc::is_directory(place)) {
        if (!is_itself) {
            return make_error_code(boost::system::errc::not_a_directory);
        }
        if (made == fs::directory_file) {
            return make_error_code(boost::system::errc::file_exists);
        }
        if (const error_code ec = overwrite_refusal(place, to_host(place))) {
            return ec;
        }
    } else if (is_itself && made != fs::directory_file) {
        return make_error_code(boost::system::errc::is_a_directory);
    }
    return write_refusal(place);
}

using copy_operation = void (*)(const fs::path& from, const fs::path& to, error_code& ec);

void copy_with(copy_operation copy, const path& from, const path& to, error_code& ec)
{
    if (planned_changes* plan = planned_changes::active()) {
        ec = missing_source(from);
        if (!ec) {
            ec = foreseen_refusal(to, fs::regular_file);
        }
        if (!ec) {
            plan->copy_file(from, to, misc::file_size(from), !missing(to));
        }
    } else {
        const fs::path host_target = to_host(to);
        if (may_overwrite(to, host_target, ec)) {
            copy(to_host(from), host_target, ec);
        }
    }
}

void remove_tree_forcibly(const path& top, error_code& ec)
{
    error_code walk_error;
    const fs::path host_top = to_host(top);
    for (fs::recursive_directory_iterator entry(host_top, walk_error), end; entry != end;
         entry.increment(walk_error)) {
        make_removable(from_host(entry->path()));
        if (walk_error) {
            break;
        }
    }
    make_removable(top);
    fs::remove_all(host_top, ec);
}

} // namespace

file_status status(const path& p)
{
    if (const planned_changes* plan = planned_changes::active()) {
        if (const auto planned = plan->status(p)) {
            return *planned;
        }
    }
    error_code ec;
    return fs::status(to_host(p), ec);
}

file_status symlink_status(const path& p)
{
    if (const planned_changes* plan = planned_changes::active()) {
        if (const auto planned = plan->status(p)) {
            return *planned;
        }
    }
    error_code ec;
    return fs::symlink_status(to_host(p), ec);
}

bool missing(const path& p)
{
    const file_type type = misc::status(p).type();
    return type == fs::status_error || type == fs::file_not_found;
}

bool is_directory(const path& p)
{
    return misc::status(p).type() == fs::directory_file;
}

std::vector<path> directory_entries(const path& folder)
{
    const planned_changes* plan = planned_changes::active();
    const auto planned = plan == nullptr ? std::nullopt : plan->status(folder);
    std::vector<path> entries;
    error_code ec;
    if (planned && planned->type() != fs::directory_file) {
        ec = make_error_code(boost::system::errc::no_such_file_or_directory);
    } else if (!planned) {
        for (fs::directory_iterator entry(to_host(folder), ec), end; !ec && entry != end;
             entry.increment(ec)) {
            entries.push_back(folder / from_host_name(entry->path().filename()));
        }
    }
    if (ec) {
        throw error_at("reading the folder", folder, ec);
    }
    if (plan != nullptr) {
        plan->adjust_entries(folder, entries);
    }
    std::vector<std::pair<std::u16string, path>> keyed;
    keyed.reserve(entries.size());
    for (path& entry : entries) {
        std::u16string key = name_key(to_utf16(to_text32(entry.filename())));
        keyed.emplace_back(std::move(key), std::move(entry));
    }
    std::sort(keyed.begin(), keyed.end());
    std::transform(keyed.begin(), keyed.end(), entries.begin(),
                   [](auto& each) { return std::move(each.second); });
    return entries;
}

std::size_t count_files_below(const path& folder)
{
    std::size_t count = 0;
    for (const path& entry : directory_entries(folder)) {
        const bool walk_into = misc::symlink_status(entry).type() == fs::directory_file;
        count += walk_into ? count_files_below(entry) : 1;
    }
    return count;
}

std::uint64_t file_size(const path& p)
{
    if (const planned_changes* plan = planned_changes::active()) {
        if (const auto planned = plan->file_size(p)) {
            return *planned;
        }
    }
    error_code ec;
    const std::uintmax_t size = fs::file_size(to_host(p), ec);
    return ec ? 0 : size;
}

std::optional<std::uint64_t> free_space(const path& p)
{
    fs::path existing = to_host(misc::absolute(p));
    error_code ec;
    while (!existing.empty() && !fs::exists(existing, ec)) {
        existing = existing.parent_path();
    }
    const fs::space_info space = fs::space(existing, ec);
    return ec ? std::nullopt : std::optional<std::uint64_t>(space.available);
}

void create_directories(const path& p, error_code& ec)
{
    if (planned_changes* plan = planned_changes::active(); plan != nullptr && !p.empty()) {
        ec.clear();
        if (!misc::is_directory(p)) {
            ec = foreseen_refusal(p, fs::directory_file);
            if (!ec) {
                plan->create_folder(p);
            }
        }
    } else if (misc::is_directory(p)) {
        ec.clear();
    } else if (may_change(p, ec)) {
        fs::create_directories(to_host(p), ec);
    }
}

void create_directories(const path& p)
{
    error_code ec;
    misc::create_directories(p, ec);
    if (ec) {
        throw error_at("creating the folder", p, ec);
    }
}

error_code foreseen_refusal(const path& p, file_type made)
{
    const path whole = misc::absolute(p);
    if (const error_code ec = change_refusal(whole)) {
        return ec;
    }
    const planned_changes* const plan = planned_changes::active();
    bool is_itself = true;
    for (path place = whole; !place.empty(); place = place.parent_path(), is_itself = false) {
        if (missing(place)) {
            if (const error_code ec = name_refusal(place)) {
                return ec;
            }
            continue;
        }
        // What the plan itself has put there needs no one's permission.
        const bool is_planned = plan != nullptr && plan->status(place);
        const bool fits = misc::is_directory(place) == (!is_itself || made == fs::directory_file);
        return is_planned && fits ? error_code() : refusal_at(place, is_itself, made);
    }
    return write_refusal(whole.root_path());
}

void copy_file(const path& from, const path& to, error_code& ec)
{
    copy_with(
        [](const fs::path& source, const fs::path& target, error_code& result) {
            fs::copy_file(source, target, fs::copy_option::overwrite_if_exists, result);
        },
        from, to, ec);
}

void copy_symlink(const path& from, const path& to, error_code& ec)
{
    copy_with([](const fs::path& source, const fs::path& target,
                 error_code& result) { fs::copy_symlink(source, target, result); },
              from, to, ec);
}

void copy_special(const path& from, const path& to, error_code& ec)
{
    copy_with([](const fs::path& source, const fs::path& target,
                 error_code& result) { fs::copy(source, target, result); },
              from, to, ec);
}

void rename(const path& from, const path& to, error_code& ec)
{
    if (planned_changes* plan = planned_changes::active()) {
        ec = foreseen_move_refusal(*plan, from, to);
        if (!ec) {
            plan->rename(from, to);
        }
    } else if (may_change(from, ec)) {
        const fs::path host_target = to_host(to);
        if (may_overwrite(to, host_target, ec)) {
            fs::rename(to_host(from), host_target, ec);
        }
    }
}

void remove(const path& p, error_code& ec)
{
    if (planned_changes* plan = planned_changes::active()) {
        if (may_change(p, ec)) {
            plan->remove(p);
        }
    } else if (may_change(p, ec)) {
        make_removable(p);
        fs::remove(to_host(p), ec);
    }
}

void remove_all(const path& p, error_code& ec)
{
    if (planned_changes* plan = planned_changes::active()) {
        if (may_change(p, ec)) {
            plan->remove(p);
        }
    } else if (may_change(p, ec)) {
        fs::remove_all(to_host(p), ec);
        // A single read-only file stops the library's removal on Windows.
        if (ec) {
            remove_tree_forcibly(p, ec);
        }
    }
}

path canonical(const path& p)
{
    const planned_changes* plan = planned_changes::active();
    if (plan != nullptr && plan->status(p) && !missing(p)) {
        path whole = misc::absolute(p).make_preferred();
        return whole.filename() == path(".") ? whole.parent_path() : whole;
    }
    error_code ec = make_error_code(boost::system::errc::no_such_file_or_directory);
    const fs::path host = p.empty() ? fs::path() : fs::canonical(to_host(p), ec);
    if (ec) {
        throw error_at("resolving the path", p, ec);
    }
    return from_host(host).make_preferred();
}

path absolute(const path& p)
{
    if (p.empty() || p.is_absolute()) {
        return p;
    }
    const path here = misc::current_path();
    if (p.has_root_directory()) {
        return here.root_name() / p;
    }
    // "D:x" counts from the top of D: unless D: is the drive of the current directory.
    if (p.has_root_name() && p.root_name() != here.root_name()) {
        return p.root_name() / "\\" / p.relative_path();
    }
    return here / p.relative_path();
}

std::u16string path_key(const path& p)
{
    const path whole = misc::absolute(p);
    const auto plain = [](const path& part) { return replace_separators(to_text32(part)); };
    std::vector<text32> names;
    for (const text32& name : split(plain(whole.relative_path()), U'\\')) {
        if (name == U"..") {
            if (!names.empty()) {
                names.pop_back();
            }
        } else if (!name.empty() && name != U".") {
            names.push_back(name);
        }
    }
    text32 key = plain(whole.root_name());
    for (const text32& name : names) {
        key += U'\\' + name;
    }
    return name_key(to_utf16(key));
}

bool lies_in(std::u16string_view key, std::u16string_view folder)
{
    return !folder.empty() && key.size() > folder.size() && key.starts_with(folder) &&
           key[folder.size()] == u'\\';
}

bool is_or_lies_in(std::u16string_view key, std::u16string_view folder)
{
    return key == folder || lies_in(key, folder);
}

std::string host_path_text(const path& p)
{
    return error_path_text(to_host(p));
}

path current_path()
{
    return from_host(fs::current_path());
}

void current_path(const path& p)
{
    error_code ec;
    fs::current_path(to_host(p), ec);
    if (ec) {
        throw error_at("entering the folder", p, ec);
    }
}

std::ifstream open_for_reading(const path& p)
{
    return std::ifstream(to_host(p).c_str(), std::ios::binary);
}

std::ofstream open_for_writing(const path& p, line_ends ends)
{
    if (planned_changes* plan = planned_changes::active()) {
        if (!missing(p.parent_path()) && !foreseen_refusal(p, fs::regular_file)) {
            plan->write_file(p);
        }
        return {};
    }
    const fs::path host = to_host(p);
    if (overwrite_refusal(p, host)) {
        return {};
    }
    return std::ofstream(host.c_str(),
                         ends == line_ends::as_written ? std::ios::binary : std::ios::out);
}

std::ofstream open_for_appending(const path& p)
{
    const fs::path host = to_host(p);
    if (planned_changes::active() != nullptr || overwrite_refusal(p, host)) {
        return {};
    }
    return std::ofstream(host.c_str(), std::ios::out | std::ios::app);
}

std::string describe(const filesystem_error& error)
{
    const std::string what = error.what();
    const std::string operation = what.substr(0, what.find(':'));
    return operation + " " + error_path_text(error.path1()) + ": " + error_message(error.code());
}

scoped_current_path::scoped_current_path(const path& folder)
{
    if (!folder.empty()) {
        before_ = misc::current_path();
        misc::current_path(folder);
    }
}

scoped_current_path::~scoped_current_path()
{
    if (!before_.empty()) {
        error_code ec;
        fs::current_path(to_host(before_), ec);
    }
}

} // namespace nrd::misc
