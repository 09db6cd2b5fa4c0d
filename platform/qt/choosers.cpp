#include "platform/qt/choosers.h"

#include "platform/qt/text.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>

#include <algorithm>
#include <cmath>

namespace ostrand::qt {

namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kTenthsPerInch = 720;
constexpr uint8_t kFixedPitch = 1; // the low bits of pitchAndFamily

QStringList FiltersOf(const VFileRequest& request)
{
    QStringList filters;
    for (const VFileFilter& filter : ParseFileFilter(request.filter)) {
        QString name = ToQt(filter.name); // its own patterns in brackets stand twice otherwise
        if (const qsizetype bracket = name.lastIndexOf(QStringLiteral(" (")); bracket > 0)
            name.truncate(bracket);
        QString patterns = ToQt(filter.patterns).replace(QLatin1Char(';'), QLatin1Char(' '));
        if (patterns == QStringLiteral("*.*"))
            patterns = QStringLiteral("*"); // also names without a point
        filters << name + QStringLiteral(" (") + patterns.simplified() + QLatin1Char(')');
    }
    return filters;
}

/// "log" of "*.log"; empty for several and for any.
QString SuffixOf(const VUnicodeString& extension)
{
    const QString text = ToQt(extension);
    const QString suffix = text.startsWith(QStringLiteral("*.")) ? text.mid(2) : QString();
    return suffix.contains(QLatin1Char('*')) || suffix.contains(QLatin1Char(';')) ? QString() : suffix;
}

QColor ToQtColor(uint32_t color)
{
    const auto part = [color](unsigned shift) { return static_cast<int>((color >> shift) & 0xFF); };
    return {part(0), part(8), part(16)};
}

uint32_t FromQtColor(const QColor& color)
{
    return static_cast<uint32_t>(color.red() | color.green() << 8 | color.blue() << 16);
}

} // namespace

bool ChooseFolder(QWidget* parent, const VUnicodeString& title, VUnicodeString& path)
{
    const QString chosen = QFileDialog::getExistingDirectory(parent, ToQt(title), ToQt(path));
    if (chosen.isEmpty())
        return false;
    path = FromQt(chosen);
    return true;
}

bool ChooseFile(QWidget* parent, VFileRequest& request)
{
    const QFileInfo proposed(ToQt(request.path));
    QFileDialog chooser(parent, ToQt(request.title));
    chooser.setAcceptMode(request.isSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    chooser.setFileMode(request.isSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    chooser.setNameFilters(FiltersOf(request));
    chooser.setDefaultSuffix(SuffixOf(request.extension));
    if (proposed.dir().exists() && proposed.isAbsolute())
        chooser.setDirectory(proposed.dir());
    if (!proposed.fileName().isEmpty())
        chooser.selectFile(proposed.fileName());
    if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty())
        return false;
    request.path = FromQt(chooser.selectedFiles().front());
    return true;
}

bool ChooseColor(QWidget* parent, VColorRequest& request)
{
    const int count =
        request.custom ? std::min(QColorDialog::customCount(), static_cast<int>(request.custom->size())) : 0;
    for (int i = 0; i < count; ++i)
        QColorDialog::setCustomColor(i, ToQtColor((*request.custom)[static_cast<size_t>(i)]));
    const QColor chosen = QColorDialog::getColor(ToQtColor(request.color), parent);
    if (!chosen.isValid())
        return false;
    request.color = FromQtColor(chosen);
    for (int i = 0; i < count; ++i)
        (*request.custom)[static_cast<size_t>(i)] = FromQtColor(QColorDialog::customColor(i));
    return true;
}

QFont ToQtFont(const VLogFont& font)
{
    QFont shown(ToQt(font.GetFace()));
    if (font.pointSize > 0)
        shown.setPointSizeF(font.pointSize / 10.0);
    else if (font.height != 0)
        shown.setPointSizeF(std::abs(font.height) * kTenthsPerInch / kPixelsPerInch / 10.0);
    if (font.weight > 0)
        shown.setWeight(static_cast<QFont::Weight>(std::clamp(font.weight, 1, 1000)));
    shown.setItalic(font.italic != 0);
    shown.setUnderline(font.underline != 0);
    shown.setStrikeOut(font.strikeOut != 0);
    shown.setFixedPitch((font.pitchAndFamily & kFixedPitch) != 0);
    return shown;
}

VLogFont FromQtFont(const QFont& chosen, const VLogFont& before)
{
    VLogFont font = before;
    font.SetFace(FromQt(chosen.family()));
    font.pointSize = static_cast<int32_t>(std::lround(chosen.pointSizeF() * 10));
    font.height = -static_cast<int32_t>(std::lround(font.pointSize * kPixelsPerInch / kTenthsPerInch));
    font.weight = chosen.weight();
    font.italic = chosen.italic() ? 1 : 0;
    font.underline = chosen.underline() ? 1 : 0;
    font.strikeOut = chosen.strikeOut() ? 1 : 0;
    return font;
}

bool ChooseFont(QWidget* parent, VFontRequest& request)
{
    bool isChosen = false;
    const auto options = request.isForPrinter ? QFontDialog::ScalableFonts : QFontDialog::FontDialogOptions();
    const QFont chosen = QFontDialog::getFont(&isChosen, ToQtFont(request.font), parent, QString(), options);
    if (isChosen)
        request.font = FromQtFont(chosen, request.font);
    return isChosen;
}

} // namespace ostrand::qt
