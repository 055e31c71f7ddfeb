#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

/// What the offscreen platform says of itself whenever a dialog or a list drops down.
const QLatin1String kPlatformsLimits("This plugin does not support ");

/// The toolkit tells of a misuse by a warning and goes on; here it is a failure.
void FailOnWarning(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (text.startsWith(kPlatformsLimits))
        return;
    const QByteArray line = text.toUtf8();
    if (type == QtDebugMsg || type == QtInfoMsg)
        std::fprintf(stderr, "%s\n", line.constData());
    else
        ADD_FAILURE() << "the toolkit warns (" << (context.category ? context.category : "")
                      << "): " << line.constData();
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(FailOnWarning);

    QTemporaryDir settings; // the toolkit's dialogs keep theirs in the user's settings
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) // a session's own, and a test needs no session
        qputenv("XDG_RUNTIME_DIR", settings.path().toLocal8Bit());
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false); // a test's last window is not the program's
    return RUN_ALL_TESTS();
}
