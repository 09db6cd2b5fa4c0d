// IPainter: the few acts of drawing that controls with a face of their own need. Views bring one for their toolkit; the
// recording one lists the acts (tests/support/recording_painter.h).
#pragma once

#include "core/strings.h"
#include "dialogs/kit/standard_icon.h"

namespace ostrand {

/// In pixels; right and bottom lie outside.
struct VRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool operator==(const VRect&) const = default;
};

enum class VEdge : uint8_t { Raised, Sunken };

/// Colours are 0x00BBGGRR.
class IPainter {
public:
    virtual void Fill(const VRect& area, uint32_t color) = 0;
    /// One line, in the middle of the area, cut at its sides.
    virtual void Text(const VRect& area, const VUnicodeString& text, uint32_t color) = 0;
    virtual void Line(int fromX, int fromY, int toX, int toY, uint32_t color) = 0;
    virtual void Edge(const VRect& area, VEdge edge) = 0;
    virtual void Frame(const VRect& area, uint32_t color) = 0;
    virtual void FocusRectangle(const VRect& area) = 0;
    virtual void Icon(const VRect& area, VIcon icon) = 0;
    virtual void Icon(const VRect& area, uintptr_t handle) = 0;

protected:
    ~IPainter() = default;
};

} // namespace ostrand
