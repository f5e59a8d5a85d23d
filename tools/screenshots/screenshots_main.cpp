// zandolt_screenshots OUTDIR [PROGRAMDIR]: runs the station on the real Qt backend in PROGRAMDIR
// (the current directory when none is given), answers the windows that wait for someone (the
// title screen, message boxes, the timed error window), and saves pictures of its windows in OUTDIR.
#include "shots.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

#include <cstdio>

namespace {

// Every so often, whatever modal window is up is answered: a message box by its default button, a
// dialog by Cancel, a window of the station by its close box.
void DismissModalWindows()
{
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible())
        return;
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        if (QAbstractButton* b = box->defaultButton())
            b->click();
        else
            box->reject();
    } else if (auto* dialog = qobject_cast<QDialog*>(modal)) {
        dialog->reject();
    } else {
        modal->close();
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "usage: zandolt_screenshots OUTDIR [PROGRAMDIR]\n");
        return 2;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zandolt ESD Test Log"));

    const QDir outDir(QDir(QString::fromLocal8Bit(argv[1])).absolutePath());
    if (!QDir().mkpath(outDir.path())) {
        std::fprintf(stderr, "zandolt_screenshots: cannot make %s\n", qPrintable(outDir.path()));
        return 1;
    }
    if (argc == 3 && !QDir::setCurrent(QString::fromLocal8Bit(argv[2]))) {
        std::fprintf(stderr, "zandolt_screenshots: cannot enter %s\n", argv[2]);
        return 1;
    }

    zandolt::qt::QtBackend backend;
    zandolt::App app(backend.services());
    QTimer dismisser;
    QObject::connect(&dismisser, &QTimer::timeout, &DismissModalWindows);
    // Long enough for a window to be seen and laid out, short enough not to wait for its own timer.
    dismisser.start(700);

    zandolt::screenshots::ShotContext ctx{backend, app, outDir, qEnvironmentVariable("ZANDOLT_TESTER_TTY")};
    int failures = 0;
    // ZANDOLT_SHOTS, a list of picture names separated by blanks or commas, takes only those.
    const QStringList wanted =
        qEnvironmentVariable("ZANDOLT_SHOTS").split(QRegularExpression("[ ,]+"), Qt::SkipEmptyParts);
    for (const auto& shot : zandolt::screenshots::AllShots()) {
        if (!wanted.isEmpty() && !wanted.contains(shot.name))
            continue;
        const QString file = outDir.filePath(shot.name + ".png");
        if (shot.take(ctx, file)) {
            std::printf("%s\n", qPrintable(file));
        } else {
            std::fprintf(stderr, "zandolt_screenshots: no picture %s\n", qPrintable(shot.name));
            ++failures;
        }
    }
    std::fflush(stdout);
    return failures == 0 ? 0 : 1;
}
