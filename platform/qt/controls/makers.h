// One maker for each kind of control; control_makers.cpp has the table.
#pragma once

#include "platform/qt/control_widget.h"

namespace ostrand::qt {

std::unique_ptr<ControlWidget> MakeGroup(FormWidget& form, size_t item);
std::unique_ptr<ControlWidget> MakeLabel(FormWidget& form, size_t item);
std::unique_ptr<ControlWidget> MakeIcon(FormWidget& form, size_t item);
std::unique_ptr<ControlWidget> MakeButton(FormWidget& form, size_t item);
std::unique_ptr<ControlWidget> MakeCheck(FormWidget& form, size_t item);
std::unique_ptr<ControlWidget> MakeRadio(FormWidget& form, size_t item);
std::unique_ptr<ControlWidget> MakeEdit(FormWidget& form, size_t item);
std::unique_ptr<ControlWidget> MakeMultiLine(FormWidget& form, size_t item);
std::unique_ptr<ControlWidget> MakeDropList(FormWidget& form, size_t item);
std::unique_ptr<ControlWidget> MakeReport(FormWidget& form, size_t item);
std::unique_ptr<ControlWidget> MakePlace(FormWidget& form, size_t item);
std::unique_ptr<ControlWidget> MakeTree(FormWidget& form, size_t item);

} // namespace ostrand::qt
