#pragma once

#include <functional>
#include <string>

namespace nui {

/// What is wrong with a layout file, told to whoever asks (authors' tools). Loading itself never
/// stops for these, and never tells.
struct LayoutFault {
    enum class Kind {
        MissingFile,
        MissingInclude,
        CircularInclude,
        TooDeep, ///< the detail is how deep widgets and menus may be
        Syntax,
        NotAnObject,
        ConfigWithoutResources,
        UnknownClass,
        NoClass,
        MissingTemplate,
        MissingWidget, ///< "#id" as a child
        MissingMenu,
        MissingPicture, ///< cannot be loaded; the widget shows nothing
        NoImages,       ///< the image array of that name has none
        WrongType,
        UnknownValue, ///< a name, unit or colour that the key doesn't know
        UnknownKey    ///< a key that nobody read; the file works without it
    };

    Kind kind = Kind::MissingFile;
    std::string file;   ///< path as it was opened, UTF-8
    std::string key;    ///< whose value is at fault; empty where it is no key's
    std::string detail; ///< the class, name, value or parser's text that is at fault; for a wrong
                        ///< type what the value must be
    int line = 0;       ///< from 1; 0 when the file could not be opened
    int column = 0;     ///< from 1, in characters
};

using FaultListener = std::function<void(const LayoutFault& fault)>;

/// "FILE:LINE:COLUMN: what is wrong", for people; the place as far as it is known.
[[nodiscard]] std::string sentenceFor(const LayoutFault& fault);

} // namespace nui
