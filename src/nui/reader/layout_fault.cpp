#include "nui/reader/layout_fault.h"

namespace nui {

namespace {

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

std::string whatIsWrong(const LayoutFault& fault)
{
    using enum LayoutFault::Kind;
    switch (fault.kind) {
    case MissingFile:
        return "the file cannot be opened";
    case MissingInclude:
        return "the included file " + quoted(fault.detail) + " cannot be opened";
    case CircularInclude:
        return "the included file " + quoted(fault.detail) + " includes this one";
    case TooDeep:
        return "widgets and menus may not be nested more than " + fault.detail + " deep";
    case Syntax:
        return "this is no JSON: " + fault.detail;
    case NotAnObject:
        return "a layout file is one JSON object";
    case ConfigWithoutResources:
        return "\"config\" must hold the text \"baseResDir\"; nothing behind it is read";
    case UnknownClass:
        return "there is no class " + quoted(fault.detail);
    case NoClass:
        return "a widget needs the key \"class\" or the key \"template\"";
    case MissingTemplate:
        return "no template " + quoted(fault.detail) + " is known here";
    case MissingWidget:
        return "no widget " + quoted(fault.detail) + " is known here";
    case MissingMenu:
        return "no menu " + quoted(fault.detail) + " is known here";
    case MissingPicture:
        return "the picture " + quoted(fault.detail) + " cannot be loaded";
    case NoImages:
        return "the image array " + quoted(fault.detail) + " has no images";
    case WrongType:
        return quoted(fault.key) + " must be " + fault.detail;
    case UnknownValue:
        return quoted(fault.key) + " cannot be " + quoted(fault.detail);
    case UnknownKey:
        return "nothing reads the key " + quoted(fault.key);
    }
    return {};
}

} // namespace

std::string sentenceFor(const LayoutFault& fault)
{
    std::string place = fault.file;
    if (fault.line > 0)
        place += ':' + std::to_string(fault.line) + ':' + std::to_string(fault.column);
    return place + ": " + whatIsWrong(fault);
}

} // namespace nui
