#include "streams/stream.h"

#include <algorithm>

namespace nrd::streams {

void stream::attach(stream_observer* observer)
{
    if (std::find(observers_.begin(), observers_.end(), observer) == observers_.end()) {
        observers_.push_back(observer);
    }
}

void stream::detach(stream_observer* observer)
{
    std::erase(observers_, observer);
}

void stream::write(const char* text, std::size_t length)
{
    for (stream_observer* const observer : observers_) {
        observer->notify(name_.data(), name_.size(), text, length);
    }
}

void stream::write_lazy(const producer& make_text)
{
    if (!observers_.empty()) {
        const std::string text = make_text();
        write(text.data(), text.size());
    }
}

} // namespace nrd::streams
