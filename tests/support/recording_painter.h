// A painter that lists what it is told, one line an act.
#pragma once

#include "core/format.h"
#include "dialogs/kit/paint.h"

#include <string>
#include <vector>

namespace ostrand::test {

class RecordingPainter : public IPainter {
public:
    void Fill(const VRect& area, uint32_t color) override { Add(u"fill", area, Format(u"%1!06x!", color)); }
    void Text(const VRect& area, const VUnicodeString& text, uint32_t color) override
    {
        Add(u"text", area, Format(u"%1!06x! %2", color, text));
    }
    void Line(int fromX, int fromY, int toX, int toY, uint32_t color) override
    {
        Add(u"line", {fromX, fromY, toX, toY}, Format(u"%1!06x!", color));
    }
    void Edge(const VRect& area, VEdge edge) override { Add(u"edge", area, edge == VEdge::Raised ? u"up" : u"down"); }
    void Frame(const VRect& area, uint32_t color) override { Add(u"frame", area, Format(u"%1!06x!", color)); }
    void FocusRectangle(const VRect& area) override { Add(u"focus", area, u""); }
    void Icon(const VRect& area, VIcon icon) override { Add(u"icon", area, Format(u"%1!d!", static_cast<int>(icon))); }
    void Icon(const VRect& area, uintptr_t handle) override { Add(u"picture", area, Format(u"%1!d!", handle)); }

    std::vector<std::u16string> acts;

private:
    void Add(std::u16string_view act, const VRect& r, std::u16string_view what)
    {
        acts.emplace_back(Format(u"%1 %2!d!,%3!d!-%4!d!,%5!d! %6", act, r.left, r.top, r.right, r.bottom, what).View());
    }
};

} // namespace ostrand::test
