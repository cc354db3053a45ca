#include "support/package_builder.h"

#include "inst/installation/parser.h"
#include "misc/file_system.h"
#include "support/file_content.h"

namespace nrd::test {

package_builder& package_builder::file(std::string_view name, std::string_view content)
{
    write_file(folder_ / misc::to_path(name), content);
    return *this;
}

package_builder& package_builder::empty_folder(std::string_view name)
{
    misc::create_directories(folder_ / misc::to_path(name));
    return *this;
}

package_builder& package_builder::add(const std::string& section, std::string_view xml)
{
    sections_[section] += std::string(xml) + "\n";
    return *this;
}

package_builder& package_builder::var(std::string_view name, std::string_view value)
{
    return add("vars",
               "<var name=\"" + std::string(name) + "\" value=\"" + std::string(value) + "\"/>");
}

misc::path package_builder::write()
{
    std::string xml = "<installation>\n";
    for (const auto& [section, content] : sections_) {
        xml += "<" + section + ">\n" + content + "</" + section + ">\n";
    }
    misc::path file = folder_ / "install.xml";
    write_file(file, xml + "</installation>\n");
    return file;
}

installation::spec package_builder::import()
{
    return installation::import_spec(write());
}

} // namespace nrd::test
