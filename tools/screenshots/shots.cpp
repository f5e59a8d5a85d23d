#include "shots.h"

#include "admin/title_form.h"
#include "station/cartoon_form.h"
#include "station/name_form.h"
#include "station/press_form.h"
#include "station/rs232_form.h"
#include "station/sim_form.h"
#include "station/tester_message.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPainter>
#include <QThread>
#include <QWidget>

#include <algorithm>
#include <cstdio>

namespace zandolt::screenshots {

namespace {

// The demo folder's employees whose tests are pictured: all three need both straps and take the
// tester's own limits.
constexpr int PressRow = 0;
constexpr int PassRow = 1;
constexpr int FailRow = 3;

bool IsUp(ShotContext& ctx, const Form& form)
{
    QWidget* w = ctx.backend.ui.window(form);
    return form.loaded() && w && w->isVisible();
}

// True while the cartoon shows a marked contact rather than the whole figure in OK.
bool CartoonShowsMarks(const CartoonForm& c)
{
    return c.ImageWLO.visible() || c.ImageWHI.visible() || c.ImageLLO.visible() || c.ImageLHI.visible() ||
           c.ImageRLO.visible() || c.ImageRHI.visible();
}

} // namespace

std::vector<Shot> AllShots()
{
    return {
        {"main-window", ShootMainWindow},
        {"title-screen", ShootTitleScreen},
        {"press-window", ShootPressWindow},
        {"test-window-pass", ShootTestPassed},
        {"test-window-fail", ShootTestFailed},
        {"unknown-id-window", ShootUnknownIdWindow},
        {"certification-window", ShootCertificationWindow},
        {"monthly-report-viewer", ShootMonthlyReport},
        {"employee-chooser", ShootEmployeeChooser},
        {"help-window", ShootHelpWindow},
        {"employee-editor", ShootModForm},
        {"change-all-limits", ShootLimitsForm},
        {"leave-window", ShootSickForm},
        {"leave-summary", ShootLeaveSummary},
        {"general-configuration", ShootConfigform},
        {"selection-configuration", ShootSelConfigForm},
        {"reader-configuration", ShootConFigReaderForm},
        {"directories", ShootDirForm},
        {"report-schedule-editing", ShootAutoFrmEditing},
        {"report-schedule-running", ShootAutoFrmRunning},
        // Last: they leave a merged log and gathered names in the program directory.
        {"log-merge", ShootLogSortForm},
        {"names-consolidation", ShootNamesForm},
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
    return RunUntil([&] { return IsUp(ctx, main); }, 5000);
}

QImage GrabWindow(ShotContext& ctx, const Form& form)
{
    if (!IsUp(ctx, form)) {
        std::fprintf(stderr, "zandolt_screenshots: the window %s is not up\n", form.name().c_str());
        return {};
    }
    return ctx.backend.ui.window(form)->grab().toImage();
}

bool SaveWindow(ShotContext& ctx, const Form& form, const QString& file)
{
    const QImage image = GrabWindow(ctx, form);
    if (image.isNull())
        return false;
    if (!image.save(file, "PNG")) {
        std::fprintf(stderr, "zandolt_screenshots: could not write %s\n", qPrintable(file));
        return false;
    }
    return true;
}

bool SaveSideBySide(ShotContext& ctx, const std::vector<const Form*>& forms, const QString& file)
{
    // The windows stand on a plain desktop-coloured ground, a margin round each.
    constexpr int margin = 16;
    std::vector<QImage> images;
    int width = margin, height = 0;
    for (const Form* form : forms) {
        QImage image = GrabWindow(ctx, *form);
        if (image.isNull())
            return false;
        width += image.width() + margin;
        height = std::max(height, image.height());
        images.push_back(std::move(image));
    }
    QImage sheet(width, height + 2 * margin, QImage::Format_RGB32);
    sheet.fill(QColor(0x5a, 0x6e, 0x82));
    QPainter painter(&sheet);
    int x = margin;
    for (const QImage& image : images) {
        painter.drawImage(x, margin, image);
        x += image.width() + margin;
    }
    painter.end();
    if (!sheet.save(file, "PNG")) {
        std::fprintf(stderr, "zandolt_screenshots: could not write %s\n", qPrintable(file));
        return false;
    }
    return true;
}

bool StartTestFor(ShotContext& ctx, int row)
{
    if (!StartStation(ctx))
        return false;
    NameForm& main = ctx.app.nameForm();
    if (row >= main.List1.listCount()) {
        std::fprintf(stderr, "zandolt_screenshots: the name list has no row %d\n", row);
        return false;
    }
    // A click on a name: the selection picks the employee, the release of the button starts the test.
    main.List1.userSelect(row);
    main.List1.userMouseUp();
    const bool up = RunUntil([&] { return IsUp(ctx, ctx.app.rs232Form()) && IsUp(ctx, ctx.app.pressForm()); }, 5000);
    if (!up)
        std::fprintf(stderr, "zandolt_screenshots: no test window for row %d\n", row);
    return up;
}

bool SimulateReadings(ShotContext& ctx, const std::string& wrist, const std::string& left, const std::string& right)
{
    SimForm& sim = ctx.app.simForm();
    if (!RunUntil([&] { return IsUp(ctx, sim); }, 3000)) {
        std::fprintf(stderr, "zandolt_screenshots: the simulated tester is not up\n");
        return false;
    }
    sim.WristText.userEdit(wrist);
    sim.LeftText.userEdit(left);
    sim.RightText.userEdit(right);
    sim.SimulateBut.userClick();
    return true;
}

bool SendTesterMessage(ShotContext& ctx, const std::string& message)
{
    QFile tester(ctx.testerDevice);
    if (!tester.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        std::fprintf(stderr, "zandolt_screenshots: cannot open %s\n", qPrintable(ctx.testerDevice));
        return false;
    }
    const QByteArray bytes = QByteArray::fromStdString(message);
    const bool written = tester.write(bytes) == bytes.size();
    tester.close();
    return written;
}

void LeaveTestWindow(ShotContext& ctx)
{
    RS232Form& w = ctx.app.rs232Form();
    if (w.loaded())
        w.CancelButton.userClick();
    RunUntil([&] { return !w.loaded() && ctx.app.nameForm().enabled(); }, 3000);
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

bool ShootPressWindow(ShotContext& ctx, const QString& file)
{
    if (!StartTestFor(ctx, PressRow))
        return false;
    // The picture is taken while the finger holds the button down, the last stage of the animation.
    PressForm& press = ctx.app.pressForm();
    const bool pressed = RunUntil([&] { return press.frame() >= 5; }, 3000);
    const bool saved = pressed && SaveWindow(ctx, press, file);
    LeaveTestWindow(ctx);
    return saved;
}

bool ShootTestPassed(ShotContext& ctx, const QString& file)
{
    if (!StartTestFor(ctx, PassRow))
        return false;
    // Well within the tester's limits on all three contacts.
    if (!SimulateReadings(ctx, "3.20", "12.40", "15.10")) {
        LeaveTestWindow(ctx);
        return false;
    }
    RS232Form& w = ctx.app.rs232Form();
    // The pass keeps the window for five seconds; the picture is taken in the first of them.
    const bool judged = RunUntil([&] { return !w.InsTitleLabel.caption().empty(); }, 3000);
    RunFor(300);
    const bool saved = judged && ctx.app.ResultCode == 0 && SaveWindow(ctx, w, file);
    if (judged && ctx.app.ResultCode != 0)
        std::fprintf(stderr, "zandolt_screenshots: the passing readings failed with code %d\n", ctx.app.ResultCode);
    RunUntil([&] { return !w.loaded(); }, 7000);
    LeaveTestWindow(ctx);
    return saved;
}

bool ShootTestFailed(ShotContext& ctx, const QString& file)
{
    if (!StartTestFor(ctx, FailRow))
        return false;
    // The wrist strap reads low and the right heel high; the left heel is fine.
    bool sent = false;
    if (!ctx.testerDevice.isEmpty()) {
        TesterFields f;
        f.wrist = 0.30f;
        f.left = 12.40f;
        f.right = 64.20f;
        f.wristState = "LO";
        f.footState = "OK";
        f.rightState = "HI";
        f.footHi = 50;
        sent = SendTesterMessage(ctx, FormatTesterMessage(f));
    } else {
        // Without a tester's port the simulated tester sends the same readings.
        sent = SimulateReadings(ctx, "0.30", "12.40", "64.20");
    }
    CartoonForm& cartoon = ctx.app.cartoonForm();
    RS232Form& w = ctx.app.rs232Form();
    // The cartoon flashes; the picture is taken while it shows the marked contacts.
    const bool marked = sent && RunUntil([&] { return IsUp(ctx, cartoon) && CartoonShowsMarks(cartoon); }, 6000);
    if (sent && !marked)
        std::fprintf(stderr, "zandolt_screenshots: no cartoon with marked contacts after the failure\n");
    const bool saved = marked && SaveSideBySide(ctx, {&w, &cartoon}, file);
    LeaveTestWindow(ctx);
    return saved;
}

} // namespace zandolt::screenshots
