#include "nui/widgets/value_range.h"

#include "nui/reader/nui_reader.h"

#include <string>

namespace nui {

void readRange(NuiReader& reader, float& minimum, float& maximum)
{
    reader.readFloat(minimum, "minimum");
    reader.readFloat(maximum, "maximum");
    if (maximum < minimum)
        reader.reportFault(LayoutFault::Kind::UnknownValue, std::to_string(maximum), "maximum");
}

} // namespace nui
