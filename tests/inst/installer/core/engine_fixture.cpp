#include "inst/installer/core/engine_fixture.h"

#include "inst/installer/core/path_index.h"
#include "misc/file_system.h"
#include "misc/registry.h"
#include "support/file_content.h"
#include "support/folder_text.h"

#include <algorithm>
#include <boost/algorithm/string/replace.hpp>
#include <regex>

namespace nrd::installer::core {

using misc::to_utf8;

namespace {

void append_exactly(std::string& text, const misc::path& folder)
{
    for (const misc::path& entry : misc::directory_entries(folder)) {
        text += to_utf8(entry) + "\n";
        if (misc::is_directory(entry)) {
            append_exactly(text, entry);
        } else {
            text += test::read_file(entry) + "\n";
        }
    }
}

} // namespace

engine::engine()
{
    misc::create_directories(package_.folder());
    misc::create_directories(path_index_file().parent_path());
}

engine::~engine()
{
    misc::delete_key(misc::uninstall_key(name_));
    misc::error_code ec;
    misc::remove(path_index_file(), ec);
}

void engine::add_vars()
{
    package_.var("APP_NAME", to_utf8(name_)).var("APP_VERSION", "1.${X}").var("PUBLISHER", "Maker");
    package_.var("APP_INSTALL_PATH", to_utf8(app_));
}

void engine::add_fileset(std::string_view in, std::string_view out)
{
    filesets_ += "<fileset in=\"" + std::string(in) + "\" out=\"" + std::string(out) + "\"/>\n";
}

void engine::add_product()
{
    add_vars();
    package_.var("APP_ICON", "${APP_INSTALL_PATH}\\a.txt");
    package_.file("app\\a.txt", "new a").file("app\\lib\\b.txt", "new b");
    package_.file("app\\z.txt", "new z").file("single.txt", "new single");
    package_.file("uninstaller.dir\\uninstaller.exe", "new exe");
    add_fileset("app", "${APP_INSTALL_PATH}");
    add_fileset("uninstaller.dir", "${APP_INSTALL_PATH}uninstaller.dir");
    add_fileset("single.txt", "${APP_INSTALL_PATH}extra\\single.txt");
    package_.add("registry", "<key path='" + to_utf8(key_.path()) +
                                 "\\Settings' name='Folder' data='${APP_INSTALL_PATH}'/>");
    package_.add("shortcuts", "<shortcut location='" + to_utf8(folder_ / "menu\\App") +
                                  "' destination='${APP_INSTALL_PATH}\\a.txt' os='win'/>");
    package_.add("path_entries", "<path_entry app_code='code' path='${APP_INSTALL_PATH}lib'/>");
}

void engine::add_old_installation()
{
    test::write_file(app_ / "a.txt", "old a");
    test::write_file(app_ / "empty", "");
    test::write_file(app_ / "old\\deep\\binary", std::string("\0\r\n\xff\x1a", 5));
    test::make_read_only(app_ / "old\\deep\\binary");
    misc::create_directories(app_ / "old\\nothing");
    misc::create_key(misc::uninstall_key(name_));
}

installation::spec engine::spec()
{
    test::package_builder whole = package_;
    if (!filesets_.empty()) {
        whole.add("packages", "<package name='main' os='win' bits='all'><filesets>\n" + filesets_ +
                                  "</filesets></package>");
    }
    return whole.import();
}

bool engine::run()
{
    const installation::spec s = spec();
    const misc::scoped_current_path here(s.working_directory);
    return install(s, observer_);
}

std::string engine::plain(std::string text) const
{
    text = std::regex_replace(text, std::regex("App_[0-9a-f]{32}\\b"), "App_(32 digits)");
    text =
        std::regex_replace(text, std::regex("(uninstall\\.[a-z]+): [0-9]+ bytes"), "$1: written");
    boost::replace_all(text, to_utf8(key_.path()), "(key)");
    boost::replace_all(text, misc::error_message({}), "(success)");
    return folder_.plain(text);
}

std::string engine::programs() const
{
    return plain(test::folder_text(app_.parent_path()));
}

std::string engine::programs_exactly() const
{
    std::string text;
    append_exactly(text, app_.parent_path());
    return text;
}

std::string engine::uninstall_values() const
{
    return plain(test::registry_text(misc::uninstall_key(name_)));
}

misc::path engine::backup() const
{
    const std::vector<misc::path> all = misc::directory_entries(app_.parent_path());
    const auto found = std::find_if(all.begin(), all.end(), [this](const misc::path& each) {
        return to_utf8(each).starts_with(to_utf8(app_) + "_");
    });
    return found == all.end() ? misc::path() : *found;
}

} // namespace nrd::installer::core
