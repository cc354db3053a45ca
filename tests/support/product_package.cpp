#include "support/product_package.h"

#include "inst/installer/core/path_index.h"
#include "misc/file_system.h"
#include "misc/registry.h"
#include "support/folder_text.h"

namespace nrd::test {

using misc::to_utf8;

product_package::product_package()
{
    misc::create_directories(installer::core::path_index_file().parent_path());
}

product_package::~product_package()
{
    for (const misc::text32& name : names_) {
        misc::delete_key(misc::uninstall_key(name));
    }
    misc::error_code ignored;
    misc::remove(installer::core::path_index_file(), ignored);
}

misc::text32 product_package::app_name(const std::string& name)
{
    return misc::to_text32("Product " + name);
}

package_builder product_package::begin(const std::string& name)
{
    names_.push_back(app_name(name));
    package_builder package(folder_ / ("package\\" + name));
    package.var("APP_NAME", to_utf8(names_.back())).var("APP_VERSION", "1").var("PUBLISHER", "P");
    package.var("APP_INSTALL_PATH", to_utf8(folder_ / ("programs\\" + name)));
    package.add("packages", "<package name='main' os='win' bits='all'><filesets>"
                            "<fileset in='" +
                                name +
                                ".txt' out='${APP_INSTALL_PATH}'/>"
                                "<fileset in='uninstaller.dir' "
                                "out='${APP_INSTALL_PATH}uninstaller.dir'/>"
                                "</filesets></package>");
    package.file("uninstaller.dir\\uninstaller.exe", "x");
    return package;
}

installation::spec product_package::product(const std::string& name)
{
    return begin(name).file(name + ".txt", name).import();
}

installation::spec product_package::broken_product(const std::string& name)
{
    return begin(name).import();
}

std::string product_package::installed() const
{
    const misc::path programs = folder_ / "programs";
    return misc::missing(programs) ? "" : folder_text(programs);
}

} // namespace nrd::test
