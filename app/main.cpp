// The station program. It takes no arguments: its program directory is the current directory, and
// the main window's load runs the whole start-up.
#include "app.h"
#include "platform/qt/qt_backend.h"
#include "station/name_form.h"

#include <QApplication>
#include <QIcon>

#include <cstdio>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        std::fprintf(stderr, "There is no display (neither DISPLAY nor WAYLAND_DISPLAY is set): the station runs "
                             "on Qt's offscreen platform.\n");
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zandolt ESD Test Log"));

    zandolt::qt::QtBackend backend;
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/pictures/logo.svg")));
    zandolt::App app(backend.services());
    app.nameForm().Load();
    return backend.ui.exec();
}
