#include "inst/installer/core/install_error.h"

#include "streams/installer_log.h"

namespace nrd::installer::core {

install_error::install_error(std::int32_t error_code) : code(error_code)
{
    installer_log("Installer_error.");
}

} // namespace nrd::installer::core
