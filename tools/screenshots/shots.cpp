#include "shots.h"

#include "admin/title_form.h"
#include "station/name_form.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QWidget>

#include <cstdio>

namespace zandolt::screenshots {

std::vector<Shot> AllShots()
{
    return {
        {"main-window", ShootMainWindow},
        {"title-screen", ShootTitleScreen},
    };
}

void RunFor(int ms)
{
    RunUntil([] { return false; }, ms);
}

bool RunUntil(const std::function<bool()>& done, int maxMs)
{
    QElapsedTimer t;
    t.start();
    while (!done()) {
        if (t.elapsed() >= maxMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
    return true;
}

bool StartStation(ShotContext& ctx)
{
    NameForm& main = ctx.app.nameForm();
    if (!main.loaded())
        main.Load();
    return RunUntil(
        [&] {
            QWidget* w = ctx.backend.ui.window(main);
            return w && w->isVisible();
        },
        5000);
}

bool SaveWindow(ShotContext& ctx, const Form& form, const QString& file)
{
    QWidget* w = ctx.backend.ui.window(form);
    if (!w || !w->isVisible()) {
        std::fprintf(stderr, "zandolt_screenshots: the window %s is not up\n", form.name().c_str());
        return false;
    }
    if (!w->grab().save(file, "PNG")) {
        std::fprintf(stderr, "zandolt_screenshots: could not write %s\n", qPrintable(file));
        return false;
    }
    return true;
}

bool ShootMainWindow(ShotContext& ctx, const QString& file)
{
    if (!StartStation(ctx))
        return false;
    // Two ticks of the one-second timer: the time line is filled in and the window is laid out.
    RunFor(2200);
    return SaveWindow(ctx, ctx.app.nameForm(), file);
}

bool ShootTitleScreen(ShotContext& ctx, const QString& file)
{
    if (!StartStation(ctx))
        return false;
    // Shown without modality, so that nothing needs to answer it; it closes after its picture.
    TitleForm& title = ctx.app.titleForm();
    title.Show();
    RunFor(300);
    const bool saved = SaveWindow(ctx, title, file);
    title.Unload();
    return saved;
}

} // namespace zandolt::screenshots
