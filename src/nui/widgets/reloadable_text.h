#pragma once

namespace nui {

/// What shows texts of the language and can look them up again.
class ReloadableText {
public:
    ReloadableText() = default;
    ReloadableText(const ReloadableText&) = default;
    ReloadableText& operator=(const ReloadableText&) = default;
    virtual ~ReloadableText() = default;
    virtual void reloadText() = 0;
};

} // namespace nui
