#include "config/global/global_defaults.h"

namespace ostrand {

VWindowPlacement DefaultFramePlacement()
{
    VWindowPlacement p;
    p.showCommand = 1;
    p.maxPositionX = -4;
    p.maxPositionY = -4;
    return p;
}

VMarginData DefaultPageMargins() { return {0.5, 0.5, 0.5, 0.5}; }

VLogFont DefaultPrinterFont()
{
    VLogFont font;
    font.height = -13;
    font.weight = 400;
    font.outPrecision = 3;
    font.clipPrecision = 2;
    font.quality = 1;
    font.pitchAndFamily = 0x31;
    font.SetFace(u"Courier New");
    font.pointSize = 100;
    return font;
}

} // namespace ostrand
