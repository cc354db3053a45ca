#include "support/nui/recording_reader.h"

namespace nui::test {

bool RecordingReader::note(const char* key, const std::string& kind)
{
    keys_.insert_or_assign(key, kind);
    return false;
}

bool RecordingReader::readEnum(std::uint32_t& /*out*/, const char* key, const char* const* table)
{
    std::string kind = "enum";
    for (; *table != nullptr; ++table) {
        if (**table != '\0')
            kind += std::string(" ") + *table;
    }
    return note(key, kind);
}

bool RecordingReader::readColor(Color& /*out*/, const char* colorKey, const char* alphaKey)
{
    if (alphaKey != nullptr)
        note(alphaKey, "alpha");
    note(colorKey, "color");
    return true;
}

bool RecordingReader::readEdgesHere(Edges& /*out*/)
{
    for (const char* const key : {"left", "right", "top", "bottom"})
        note(key, "size");
    return false;
}

bool RecordingReader::readBorderHere(BorderColors& out)
{
    readColor(out.left, "leftColor", "leftAlpha");
    readColor(out.right, "rightColor", "rightAlpha");
    readColor(out.top, "topColor", "topAlpha");
    readColor(out.bottom, "bottomColor", "bottomAlpha");
    return true;
}

std::unique_ptr<NuiReader> RecordingReader::firstIn(const char* key)
{
    note(key, "array");
    return nullptr;
}

} // namespace nui::test
