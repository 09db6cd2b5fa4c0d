#include "examples/host/photographs.h"

#include "core/fold.h"
#include "dialogs/kit/user_input.h"
#include "examples/host/text.h"

#include <QApplication>
#include <QDir>
#include <QWidget>

#include <iostream>

namespace host {

using namespace ostrand;

namespace {

/// "Connection > Logon Actions" as "connection-logon-actions.png"
QString FileOf(const VPropertyTreePage& page)
{
    QString name = QString::fromStdString(ToUtf8(page.GetPath())).toLower();
    for (QChar& c : name)
        if (!c.isLetterOrNumber())
            c = QLatin1Char(' ');
    return name.simplified().replace(QLatin1Char(' '), QLatin1Char('-')) + QStringLiteral(".png");
}

bool SavePicture(const QString& file)
{
    constexpr int kRounds = 5; // a layout asks for the next one
    for (int i = 0; i < kRounds; ++i)
        QApplication::processEvents();
    QWidget* const window = QApplication::activeModalWidget();
    if (window && window->grab().save(file)) {
        std::cout << file.toStdString() << '\n';
        return true;
    }
    Fail("can't write " + file.toStdString());
    return false;
}

bool SaveAll(SessionOptionsDialog& dialog, const QDir& folder)
{
    bool isSaved = true;
    for (VPropertyTreePage* const page : dialog.GetVisiblePages())
        isSaved = dialog.SelectPage(*page) && SavePicture(folder.filePath(FileOf(*page))) && isSaved;
    return isSaved;
}

bool SaveOne(SessionOptionsDialog& dialog, const Arguments& arguments)
{
    const VUnicodeString wanted = Text(arguments.page);
    std::string others;
    for (VPropertyTreePage* const page : dialog.GetVisiblePages()) {
        if (wanted.IsEmpty() || EqualNoCase(page->GetPath(), wanted))
            return dialog.SelectPage(*page) && SavePicture(QString::fromStdString(arguments.screenshot));
        others += "\n  " + ToUtf8(page->GetPath());
    }
    Fail("there is no page '" + arguments.page + "'; there are" + others);
    return false;
}

} // namespace

int Photograph(GlobalConfig& global, SessionConfig& session, const SessionOptionsSetup& setup,
               const Arguments& arguments)
{
    const QDir folder(QString::fromStdString(arguments.screenshot));
    SessionOptionsDialog dialog(global, session, setup);
    bool isSaved = false;
    dialog.PostToSelf([&] {
        if (!arguments.search.empty())
            VUserInput(dialog).Type(SessionOptionsDialog::SearchText, Text(arguments.search));
        isSaved = folder.exists() ? SaveAll(dialog, folder) : SaveOne(dialog, arguments);
        dialog.EndDialog(kResultCancel);
    });
    dialog.DoModal();
    return isSaved ? 0 : 1;
}

} // namespace host
