#pragma once

#include <algorithm>
#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <utility>

namespace nui {

/// What a font has found out about the texts that it was asked for last.
template <class Key, class Value> class TextCache {
public:
    /// The value for the text, a new one if there is none. Valid until the next call.
    Value& at(const Key& key, std::string_view text)
    {
        const auto known = std::ranges::find_if(
            entries_, [&](const Entry& each) { return each.key == key && each.text == text; });
        if (known != entries_.end()) {
            entries_.splice(entries_.begin(), entries_, known);
            return entries_.front().value;
        }
        entries_.push_front({key, std::string(text), {}});
        bytes_ += text.size();
        while (entries_.size() > MostEntries || (entries_.size() > Kept && bytes_ > MostBytes)) {
            bytes_ -= entries_.back().text.size();
            entries_.pop_back();
        }
        return entries_.front().value;
    }

    void clear()
    {
        entries_.clear();
        bytes_ = 0;
    }

private:
    struct Entry {
        Key key;
        std::string text;
        Value value;
    };

    /// More than the texts of a page, as those that are drawn in turn would drive each other out.
    static constexpr std::size_t MostEntries = 256;
    /// Of the texts; what is found out about them takes many times as much.
    static constexpr std::size_t MostBytes = 500000;
    /// However long they are: what one field asks for with each frame.
    static constexpr std::size_t Kept = 4;

    std::list<Entry> entries_; ///< what was asked for last in front
    std::size_t bytes_ = 0;
};

} // namespace nui
