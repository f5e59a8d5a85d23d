// The pictures the screenshot tool takes, one function each, and what they share.
#pragma once

#include "app.h"
#include "platform/qt/qt_backend.h"

#include <QDir>
#include <QString>

#include <functional>
#include <vector>

namespace zandolt::screenshots {

struct ShotContext
{
    qt::QtBackend& backend;
    App& app;
    // Where the pictures go.
    QDir outDir;
    // The far end of the tester's port when the script made one (ZANDOLT_TESTER_TTY), else empty.
    QString testerDevice;
};

struct Shot
{
    QString name; // the picture is OUTDIR/<name>.png
    std::function<bool(ShotContext&, const QString& file)> take;
};

// Every picture, in the order they are taken.
std::vector<Shot> AllShots();

// Lets the program run for a while, its timers and windows included.
void RunFor(int ms);
// Runs the program until done() holds or maxMs have passed.
bool RunUntil(const std::function<bool()>& done, int maxMs);
// Loads the main window as the program starts, when it is not up yet. False when it did not show.
bool StartStation(ShotContext& ctx);
// Saves the top-level window of a loaded form, menu bar included, as a PNG.
bool SaveWindow(ShotContext& ctx, const Form& form, const QString& file);

// Picture functions.
bool ShootMainWindow(ShotContext& ctx, const QString& file);
bool ShootTitleScreen(ShotContext& ctx, const QString& file);

} // namespace zandolt::screenshots
