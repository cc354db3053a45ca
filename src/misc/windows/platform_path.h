#pragma once

#include <boost/filesystem/path.hpp>

namespace nrd::misc {

using boost::filesystem::path;

} // namespace nrd::misc
