#include "support/nui/recording_reader.h"

namespace nui::test {

bool RecordingReader::note(const char* key, const std::string& kind)
{
    keys_.insert_or_assign(key, kind);
    return false;
}

bool RecordingReader::readString(std::string& /*out*/, const char* key, bool /*overridable*/)
{
    return note(key, "string");
}

bool RecordingReader::readSize(Size& /*size*/, const char* key)
{
    return note(key, "size");
}

bool RecordingReader::readPoint(Point& /*out*/, const char* key)
{
    return note(key, "point");
}

bool RecordingReader::readFloatList(std::vector<float>& /*out*/, const char* key)
{
    return note(key, "numbers");
}

bool RecordingReader::readStringList(std::vector<std::string>& /*out*/, const char* key)
{
    return note(key, "strings");
}

bool RecordingReader::readPointOrAuto(Point& /*out*/, const char* key)
{
    return note(key, "pointOrAuto");
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

bool RecordingReader::readFloat(float& /*out*/, const char* key)
{
    return note(key, "number");
}

bool RecordingReader::readInt(std::int32_t& /*out*/, const char* key)
{
    return note(key, "integer");
}

bool RecordingReader::readUnsigned(std::uint32_t& /*out*/, const char* key)
{
    return note(key, "integer");
}

bool RecordingReader::readBool(bool& /*out*/, const char* key)
{
    return note(key, "boolean");
}

bool RecordingReader::readEdges(Edges& /*out*/, const char* key)
{
    return note(key, "edges");
}

bool RecordingReader::readEdgesHere(Edges& /*out*/)
{
    for (const char* const key : {"left", "right", "top", "bottom"})
        note(key, "size");
    return false;
}

bool RecordingReader::readBorder(BorderColors& /*out*/, const char* key)
{
    return note(key, "border");
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

bool RecordingReader::readTemplateRef(WidgetPtr& /*out*/, const char* key, bool* /*isBack*/)
{
    return note(key, "reference");
}

} // namespace nui::test
