#include "nui/reader/nui_file_reader.h"

#include "nui/menus/popup_menu.h"
#include "nui/reader/layout_diagnostics.h"
#include "nui/reader/layout_loader.h"
#include "nui/reader/value_text.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace nui {

namespace {

using Fault = LayoutFault::Kind;

/// The low half of the number as it is stored: whole numbers wrap around, and of a fraction these
/// are no digits but bits.
std::uint32_t rawInteger(const Json& number)
{
    if (number.IsInt64())
        return static_cast<std::uint32_t>(number.GetInt64());
    if (number.IsUint64())
        return static_cast<std::uint32_t>(number.GetUint64());
    return static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(number.GetDouble()));
}

float floatOf(const Json& number)
{
    constexpr double Most = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(number.GetDouble(), -Most, Most));
}

std::string textOf(const Json& text)
{
    return {text.GetString(), text.GetStringLength()};
}

} // namespace

NuiFileReader::NuiFileReader(WidgetPack& pack, LayoutLoader& loader, const Json& value,
                             LayoutDiagnostics* diagnostics)
    : NuiReader(pack, loader), value_(&value), end_(&value + 1), diagnostics_(diagnostics)
{
    if (diagnostics_ != nullptr)
        diagnostics_->noteObject(value);
}

std::unique_ptr<NuiReader> NuiFileReader::onItem(const Json* item, const Json* end) const
{
    auto reader = std::make_unique<NuiFileReader>(pack(), loader(), *item, diagnostics_);
    reader->end_ = end;
    return reader;
}

const Json* NuiFileReader::find(const char* key)
{
    if (!value_->IsObject())
        return nullptr;
    const std::string full = prefix().empty() ? std::string() : prefix() + key;
    const auto member = value_->FindMember(full.empty() ? key : full.c_str());
    if (member == value_->MemberEnd())
        return nullptr;
    if (diagnostics_ != nullptr)
        diagnostics_->noteRead(member->value);
    return &member->value;
}

const Json* NuiFileReader::find(const char* key, TypeTest isOfType, const char* expected)
{
    const Json* const value = find(key);
    if (value == nullptr || (value->*isOfType)())
        return value;
    reportFault(Fault::WrongType, expected, key);
    return nullptr;
}

void NuiFileReader::reportFault(LayoutFault::Kind kind, const std::string& detail, const char* key)
{
    if (diagnostics_ == nullptr)
        return;
    if (kind == Fault::UnknownClass || kind == Fault::NoClass || kind == Fault::TooDeep)
        diagnostics_->dropObject(*value_);
    // In place of an object a text names a widget; and a key whose value is of no use has been
    // told.
    if (kind == Fault::NoClass && value_->IsString()) {
        diagnostics_->report(Fault::MissingWidget, *value_, {}, textOf(*value_));
        return;
    }
    if (kind == Fault::NoClass && (has("class") || has("template")))
        return;
    const Json* const at = key == nullptr ? nullptr : find(key);
    diagnostics_->report(kind, at == nullptr ? *value_ : *at,
                         key == nullptr ? std::string() : prefix() + key, detail);
}

bool NuiFileReader::has(const char* key)
{
    return find(key) != nullptr;
}

bool NuiFileReader::readString(std::string& out, const char* key, bool overridable)
{
    if (!overridable && !prefix().empty())
        return false;
    const Json* const value = find(key, &Json::IsString, "a text");
    if (value == nullptr)
        return false;
    out = textOf(*value);
    return true;
}

bool NuiFileReader::readSize(Size& size, const char* key)
{
    const Json* const value = find(key);
    if (value == nullptr)
        return false;
    if (value->IsNumber()) {
        size = {floatOf(*value), Px};
        return true;
    }
    if (!value->IsString()) {
        reportFault(Fault::WrongType, "a number or a text", key);
        return false;
    }
    if (parseSize(textOf(*value), size))
        return true;
    reportFault(Fault::UnknownValue, textOf(*value), key);
    return false;
}

bool NuiFileReader::readPointFrom(const Json& value, Point& out, const char* key)
{
    if (!value.IsArray() || value.Size() < 2 || !value[0].IsNumber() || !value[1].IsNumber()) {
        reportFault(Fault::WrongType, "a list of two numbers", key);
        return false;
    }
    out = {floatOf(value[0]), floatOf(value[1])};
    return true;
}

bool NuiFileReader::readPoint(Point& out, const char* key)
{
    const Json* const value = find(key);
    return value != nullptr && readPointFrom(*value, out, key);
}

bool NuiFileReader::readPointOrAuto(Point& out, const char* key)
{
    const Json* const value = find(key);
    if (value == nullptr)
        return false;
    if (!value->IsString())
        return readPointFrom(*value, out, key);
    if (textOf(*value) != "auto") {
        reportFault(Fault::UnknownValue, textOf(*value), key);
        return false;
    }
    out = {std::numeric_limits<float>::max(), std::numeric_limits<float>::max()};
    return true;
}

bool NuiFileReader::readFloatList(std::vector<float>& out, const char* key)
{
    const Json* const value = find(key, &Json::IsArray, "a list of numbers");
    if (value == nullptr)
        return false;
    out.clear();
    for (const Json& item : value->GetArray()) {
        if (item.IsNumber())
            out.push_back(floatOf(item));
        else
            reportFault(Fault::WrongType, "a list of numbers", key);
    }
    return true;
}

bool NuiFileReader::readStringList(std::vector<std::string>& out, const char* key)
{
    const Json* const value = find(key, &Json::IsArray, "a list of texts");
    if (value == nullptr)
        return false;
    out.clear();
    for (const Json& item : value->GetArray()) {
        if (item.IsString())
            out.push_back(textOf(item));
        else
            reportFault(Fault::WrongType, "a list of texts", key);
    }
    return true;
}

bool NuiFileReader::readEnum(std::uint32_t& out, const char* key, const char* const* table)
{
    const Json* const value = find(key, &Json::IsString, "a text");
    if (value == nullptr)
        return false;
    const std::string name = textOf(*value);
    for (std::uint32_t index = 0; !name.empty() && table[index] != nullptr; ++index) {
        if (name == table[index]) {
            out = index;
            return true;
        }
    }
    reportFault(Fault::UnknownValue, name, key);
    return false;
}

void NuiFileReader::readAlpha(Color& out, const char* alphaKey)
{
    if (alphaKey == nullptr) {
        out |= AlphaMask;
        return;
    }
    if (const Json* const value = find(alphaKey, &Json::IsNumber, "a number")) {
        const float alpha = std::clamp(floatOf(*value), 0.0F, 1.0F);
        out = withAlpha(out, static_cast<std::uint32_t>(alpha * 255));
    }
}

const std::string* NuiFileReader::colorNamed(const std::string& name) const
{
    for (const auto* const names : {&pack().constants, &pack().theme}) {
        const auto found = names->find(name);
        if (found != names->end())
            return &found->second;
    }
    return nullptr;
}

bool NuiFileReader::readColor(Color& out, const char* colorKey, const char* alphaKey)
{
    readAlpha(out, alphaKey);
    std::string text;
    if (!readString(text, colorKey, true))
        return true;
    // Names may stand for names. Two that stand for each other never end: layout files are part
    // of the program.
    while (!text.starts_with('#')) {
        const std::string* const meaning = colorNamed(text);
        if (meaning == nullptr) {
            reportFault(Fault::UnknownValue, text, colorKey);
            return false;
        }
        text = *meaning;
    }
    if (text.find_first_not_of("0123456789abcdefABCDEF", 1) != text.npos || text.size() == 1)
        reportFault(Fault::UnknownValue, text, colorKey);
    out = withAlpha(parseHexColor(text), alphaOf(out));
    // Nothing is drawn fully transparent: a colour that is given shows.
    if (alphaOf(out) == 0)
        out |= AlphaMask;
    return true;
}

bool NuiFileReader::readFloat(float& out, const char* key)
{
    const Json* const value = find(key, &Json::IsNumber, "a number");
    if (value == nullptr)
        return false;
    out = floatOf(*value);
    return true;
}

bool NuiFileReader::readUnsigned(std::uint32_t& out, const char* key)
{
    const Json* const value = find(key, &Json::IsNumber, "a number");
    if (value == nullptr)
        return false;
    if (!value->IsInt() && !value->IsUint())
        reportFault(Fault::WrongType, "a whole number", key);
    out = rawInteger(*value);
    return true;
}

bool NuiFileReader::readInt(std::int32_t& out, const char* key)
{
    std::uint32_t raw = 0;
    if (!readUnsigned(raw, key))
        return false;
    out = static_cast<std::int32_t>(raw);
    return true;
}

bool NuiFileReader::readBool(bool& out, const char* key)
{
    const Json* const value = find(key);
    if (value == nullptr)
        return false;
    if (!value->IsBool())
        reportFault(Fault::WrongType, "true or false", key);
    out = value->IsTrue();
    return true;
}

bool NuiFileReader::readEdge(float& value, SizeMode& mode, const char* key)
{
    Size size{value, mode};
    const bool found = readSize(size, key);
    value = size.value;
    mode = size.mode;
    return found;
}

bool NuiFileReader::readEdgesHere(Edges& out)
{
    const bool left = readEdge(out.left, out.leftMode, "left");
    const bool right = readEdge(out.right, out.rightMode, "right");
    const bool top = readEdge(out.top, out.topMode, "top");
    const bool bottom = readEdge(out.bottom, out.bottomMode, "bottom");
    return left || right || top || bottom;
}

bool NuiFileReader::readEdges(Edges& out, const char* key)
{
    const Json* const value = find(key, &Json::IsObject, "an object");
    return value != nullptr &&
           NuiFileReader(pack(), loader(), *value, diagnostics_).readEdgesHere(out);
}

bool NuiFileReader::readBorderHere(BorderColors& out)
{
    const bool left = readColor(out.left, "leftColor", "leftAlpha");
    const bool right = readColor(out.right, "rightColor", "rightAlpha");
    const bool top = readColor(out.top, "topColor", "topAlpha");
    const bool bottom = readColor(out.bottom, "bottomColor", "bottomAlpha");
    return left && right && top && bottom;
}

bool NuiFileReader::readBorder(BorderColors& out, const char* key)
{
    const Json* const value = find(key, &Json::IsObject, "an object");
    return value != nullptr &&
           NuiFileReader(pack(), loader(), *value, diagnostics_).readBorderHere(out);
}

const char* NuiFileReader::className()
{
    if (loader().usesDesignClasses()) {
        const Json* const value = find("d:class");
        if (value != nullptr && value->IsString())
            return value->GetString();
    }
    const Json* const value = find("class", &Json::IsString, "a text");
    return value == nullptr ? nullptr : value->GetString();
}

std::unique_ptr<NuiReader> NuiFileReader::firstIn(const char* key)
{
    const Json* const value = find(key, &Json::IsArray, "a list");
    if (value == nullptr || value->Empty())
        return nullptr;
    return onItem(value->Begin(), value->End());
}

std::unique_ptr<NuiReader> NuiFileReader::nextItem()
{
    const Json* const next = value_ + 1;
    return next == end_ ? nullptr : onItem(next, end_);
}

WidgetPtr NuiFileReader::templateWidget()
{
    WidgetPtr found;
    readTemplateRef(found, "template", nullptr);
    return found;
}

PopupMenuPtr NuiFileReader::menuNamed(const std::string& id)
{
    const auto found = pack().menus.find(id);
    if (found != pack().menus.end())
        return found->second;
    reportFault(Fault::MissingMenu, id, nullptr);
    return nullptr;
}

bool NuiFileReader::readTemplateRef(WidgetPtr& out, const char* key, bool* isBack)
{
    std::string name;
    if (!readString(name, key, true))
        return false;
    if (isBack != nullptr && name.starts_with('-'))
        *isBack = true;
    if (name.empty()) {
        out = nullptr;
        return true;
    }
    const auto found = pack().widgets.find(name);
    if (found == pack().widgets.end()) {
        reportFault(Fault::MissingTemplate, name, key);
        return false;
    }
    out = found->second;
    return true;
}

WidgetPtr NuiFileReader::widgetRefHere()
{
    if (!value_->IsString() || !textOf(*value_).starts_with('#'))
        return nullptr;
    const auto found = pack().widgets.find(textOf(*value_).substr(1));
    return found == pack().widgets.end() ? nullptr : found->second;
}

PopupMenuPtr NuiFileReader::menuRefHere()
{
    return value_->IsString() ? menuNamed(textOf(*value_)) : nullptr;
}

} // namespace nui
