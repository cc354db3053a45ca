#include "vs/vs_installer/obsolete_cutters.h"

namespace nrd::vs_installer {

bool has_obsolete_cutter()
{
    return false;
}

} // namespace nrd::vs_installer
