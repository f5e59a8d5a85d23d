// The pictures the screenshot tool takes, one function each, and what they share.
#pragma once

#include "app.h"
#include "platform/qt/qt_backend.h"

#include <QDir>
#include <QImage>
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
// The top-level window of a loaded form, menu bar included; a null image when it is not up.
QImage GrabWindow(ShotContext& ctx, const Form& form);
// Saves the top-level window of a loaded form as a PNG.
bool SaveWindow(ShotContext& ctx, const Form& form, const QString& file);
// Saves the windows of several forms in one PNG, side by side in the order given, tops aligned.
bool SaveSideBySide(ShotContext& ctx, const std::vector<const Form*>& forms, const QString& file);

// Clicks the name in row `row` of the main window's list, which starts a test for that employee,
// and waits for the test window and the press-button window. False when they did not come up.
bool StartTestFor(ShotContext& ctx, int row);
// Readings typed into the simulated tester and sent with its Simulate button.
bool SimulateReadings(ShotContext& ctx, const std::string& wrist, const std::string& left, const std::string& right);
// A whole tester message written to the far end of the tester's port, as a tester sends it.
bool SendTesterMessage(ShotContext& ctx, const std::string& message);
// Closes the test window as its Cancel button does, and waits until it has gone.
void LeaveTestWindow(ShotContext& ctx);

// Picture functions.
bool ShootMainWindow(ShotContext& ctx, const QString& file);
bool ShootTitleScreen(ShotContext& ctx, const QString& file);
bool ShootPressWindow(ShotContext& ctx, const QString& file);
bool ShootTestPassed(ShotContext& ctx, const QString& file);
bool ShootTestFailed(ShotContext& ctx, const QString& file);
bool ShootMonthlyReport(ShotContext& ctx, const QString& file);
bool ShootEmployeeChooser(ShotContext& ctx, const QString& file);
bool ShootHelpWindow(ShotContext& ctx, const QString& file);
// Starts the station, shows the window without modality (after `fill`, when given), saves its
// picture and closes it again.
bool ShowAndSave(ShotContext& ctx, Form& form, const QString& file, const std::function<void()>& fill = {});

bool ShootUnknownIdWindow(ShotContext& ctx, const QString& file);
bool ShootCertificationWindow(ShotContext& ctx, const QString& file);
bool ShootModForm(ShotContext& ctx, const QString& file);
bool ShootLimitsForm(ShotContext& ctx, const QString& file);
bool ShootSickForm(ShotContext& ctx, const QString& file);
bool ShootLeaveSummary(ShotContext& ctx, const QString& file);
bool ShootConfigform(ShotContext& ctx, const QString& file);
bool ShootSelConfigForm(ShotContext& ctx, const QString& file);
bool ShootConFigReaderForm(ShotContext& ctx, const QString& file);
bool ShootDirForm(ShotContext& ctx, const QString& file);
bool ShootAutoFrmEditing(ShotContext& ctx, const QString& file);
bool ShootAutoFrmRunning(ShotContext& ctx, const QString& file);

bool ShootLogSortForm(ShotContext& ctx, const QString& file);
bool ShootNamesForm(ShotContext& ctx, const QString& file);

} // namespace zandolt::screenshots
