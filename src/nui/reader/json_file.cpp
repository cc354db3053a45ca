#include "nui/reader/json_file.h"

#include <SDL_error.h>
#include <SDL_rwops.h>
#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <array>
#include <memory>

namespace nui {

namespace {

struct Closing {
    void operator()(SDL_RWops* file) const { SDL_RWclose(file); }
};

/// The JSON parser's kind of input stream, over a file of SDL's. The end is a zero byte.
class FileStream {
public:
    using Ch = char;

    explicit FileStream(SDL_RWops& file) : file_(file) { fill(); }

    // The parser's names. NOLINTBEGIN(readability-identifier-naming)
    [[nodiscard]] char Peek() const { return current_ < count_ ? buffer_[current_] : '\0'; }
    char Take()
    {
        const char taken = Peek();
        if (++current_ >= count_ && count_ > 0)
            fill();
        return taken;
    }
    [[nodiscard]] std::size_t Tell() const { return before_ + current_; }

    // Asked for by the parser's types, not by what it does with a stream that is only read.
    void Put(char /*letter*/) {}
    void Flush() {}
    char* PutBegin() { return nullptr; }
    std::size_t PutEnd(const char* /*begin*/) { return 0; }
    // NOLINTEND(readability-identifier-naming)

private:
    void fill()
    {
        before_ += count_;
        count_ = SDL_RWread(&file_, buffer_.data(), 1, buffer_.size());
        current_ = 0;
    }

    SDL_RWops& file_;
    std::array<char, 2048> buffer_{};
    std::size_t before_ = 0; ///< bytes in front of the buffer's
    std::size_t count_ = 0;
    std::size_t current_ = 0;
};

} // namespace

JsonFile::JsonFile(const std::string& path)
{
    const std::unique_ptr<SDL_RWops, Closing> file(SDL_RWFromFile(path.c_str(), "r"));
    if (!file)
        return;
    SDL_ClearError();
    FileStream stream(*file);
    // Some systems open a folder like a file, and only reading it fails.
    if (stream.Peek() == '\0' && *SDL_GetError() != '\0')
        return;
    opened_ = true;
    beginsWithMark_ = stream.Peek() == '\xEF';
    // Not recursive: no depth of a file's nesting can exhaust the stack.
    document_.ParseStream<rapidjson::kParseIterativeFlag>(stream);
}

const char* JsonFile::errorText() const
{
    if (beginsWithMark_ && errorOffset() == 0)
        return "The file begins with a byte order mark.";
    return rapidjson::GetParseError_En(document_.GetParseError());
}

} // namespace nui
