// Widgets without a display: one style and one font, so that runs are alike everywhere.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QStyleFactory>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    return RUN_ALL_TESTS();
}
