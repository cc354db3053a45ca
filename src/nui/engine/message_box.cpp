#include "nui/engine/engine.h"
#include "nui/widgets/screen.h"

#include <SDL2/SDL.h>

#include <array>

namespace nui {

namespace {

enum Answer : int { Ok = 0, Cancel = 1, Yes = 2, No = 3 };

constexpr std::array Labels = {"OK", "Cancel", "Yes", "No"};

constexpr std::uint32_t ButtonMask = 0xF;
constexpr std::uint32_t IconMask = 0xF0;

std::vector<Answer> answersOf(std::uint32_t flags)
{
    switch (flags & ButtonMask) {
    case 1:
        return {Ok, Cancel};
    case 2:
        return {Yes, No};
    case 3:
        return {Yes, No, Cancel};
    default:
        return {Ok};
    }
}

std::uint32_t iconOf(std::uint32_t flags)
{
    switch (flags & IconMask) {
    case 0x10:
        return SDL_MESSAGEBOX_ERROR;
    case 0x20:
        return SDL_MESSAGEBOX_WARNING;
    case 0x30:
        return SDL_MESSAGEBOX_INFORMATION;
    default:
        return 0;
    }
}

/// The first answer is for Return, the last, which is also that of a box without an answer, for
/// Escape.
int sdlMessageBox(SDL_Window* owner, std::uint32_t flags, const std::string& text,
                  const std::string& title)
{
    const std::vector<Answer> answers = answersOf(flags);
    std::vector<SDL_MessageBoxButtonData> buttons;
    buttons.reserve(answers.size());
    for (const Answer answer : answers)
        buttons.push_back({0, answer, Labels[static_cast<std::size_t>(answer)]});
    buttons.front().flags |= SDL_MESSAGEBOX_BUTTON_RETURNKEY_DEFAULT;
    buttons.back().flags |= SDL_MESSAGEBOX_BUTTON_ESCAPEKEY_DEFAULT;
    const SDL_MessageBoxData box = {iconOf(flags) | SDL_MESSAGEBOX_BUTTONS_LEFT_TO_RIGHT,
                                    owner,
                                    title.c_str(),
                                    text.c_str(),
                                    static_cast<int>(buttons.size()),
                                    buttons.data(),
                                    nullptr};
    int answer = answers.back();
    if (SDL_ShowMessageBox(&box, &answer) != 0)
        SDL_Log("error displaying message box");
    return answer < 0 ? answers.back() : answer;
}

} // namespace

int Engine::messageBox(std::uint32_t flags, const std::string& text, const char* title)
{
    const ScreenPtr& screen = screens.current();
    SDL_Window* const owner = screen && screen->isOpen() ? screen->window->sdlWindow() : nullptr;
    const std::string own = screen ? screen->title() : std::string();
    const std::string shown = title != nullptr ? title : own;
    const std::optional<int> answer = nativeMessageBox(owner, flags, text, shown);
    const int result = answer ? *answer : sdlMessageBox(owner, flags, text, shown);
    dropInput();
    return result;
}

} // namespace nui
