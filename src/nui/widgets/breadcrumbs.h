#pragma once

#include "nui/widgets/container.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace nui {

class MoreButton;
class PopupList;

/// The way to a place, as a row of parts that lead back; the last one is the place itself. Parts
/// that have no room are in the list that a MoreButton opens, which is a child that the layout
/// file gives or the row's own. A part that the user picks raises plain_event::Activate, by
/// pointer or keyboard; Left and Right go along the parts.
class Breadcrumbs : public Cloneable<Breadcrumbs, Container> {
public:
    static constexpr std::int32_t None = -1;

    Breadcrumbs();
    /// A copy opens a list of its own.
    Breadcrumbs(const Breadcrumbs& other);
    Breadcrumbs& operator=(const Breadcrumbs& other);
    ~Breadcrumbs() override;

    bool layout(std::uint32_t flags) override;
    bool read(NuiReader& reader) override;
    void reloadText() override;
    [[nodiscard]] const char* className() const override { return "Breadcrumbs"; }

    /// Language keys or texts, from the outermost.
    void setItems(std::vector<std::string> keys);
    [[nodiscard]] const std::vector<std::string>& items() const { return keys_; }
    /// The part that was picked last.
    [[nodiscard]] std::int32_t picked() const { return picked_; }
    /// How many of the first parts have no room.
    [[nodiscard]] std::size_t hiddenCount() const { return hidden_; }

private:
    static void onActivate(WidgetEvent& event);
    static void onKey(WidgetEvent& event);
    static void onPress(WidgetEvent& event);
    void adopt(const Breadcrumbs& other);
    void build();
    void buildMore();
    [[nodiscard]] WidgetPtr makePart(bool isLast) const;
    [[nodiscard]] WidgetPtr makeSeparator(const WidgetPtr& look) const;
    [[nodiscard]] MoreButton* moreButton() const;
    [[nodiscard]] std::vector<WidgetPtr> childrenNamed(const std::string& wanted) const;
    void showFrom(std::size_t first, bool more);
    [[nodiscard]] float roomOf(const Widget& child) const;
    [[nodiscard]] float wantedWidth() const;
    void hideWhatHasNoRoom(float wanted);
    void openHidden();
    void pick(std::int32_t index);
    [[nodiscard]] bool goAlong(const Widget& part, bool back);

    std::vector<std::string> keys_;
    std::string separatorText_;
    WidgetPtr itemTemplate_;
    WidgetPtr separatorTemplate_;
    std::int32_t picked_ = None;
    std::size_t hidden_ = 0;
    std::shared_ptr<PopupList> list_;
    bool pressClosed_ = false; ///< the press that is under way closes the list
};

} // namespace nui
