// Printing on a real print system: a private CUPS scheduler with its own configuration and spool in
// a temporary folder, and one queue whose backend writes every job to a file. The Qt printer makes
// its PDF and hands it to that scheduler as it would to the plant's printer; the job's text is then
// read back with pdftotext. Without the scheduler's programs, or where it cannot start, the tests
// say why and are skipped.
#include "app.h"
#include "automation/tag_printing.h"
#include "platform/qt/qt_backend.h"
#include "reports/disp_form.h"
#include "reports/report_frame.h"
#include "reports/report_printing.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zandolt::qt {
namespace {

bool writeFile(const QString& path, const QByteArray& text, bool executable = false)
{
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(text) != text.size())
        return false;
    f.close();
    if (executable)
        f.setPermissions(f.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther |
                         QFileDevice::ReadOther | QFileDevice::ReadGroup);
    return true;
}

// Runs a program to its end; its standard output, or nothing when it failed.
QString run(const QString& program, const QStringList& arguments, bool* ok = nullptr)
{
    QProcess p;
    p.start(program, arguments);
    const bool done = p.waitForFinished(30000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
    if (ok)
        *ok = done;
    return done ? QString::fromLocal8Bit(p.readAllStandardOutput()) : QString();
}

// A CUPS scheduler of our own with the queue "capture", made the default for this process.
class PrivateCups
{
public:
    // Empty when it runs; otherwise why it does not.
    QString start()
    {
        for (const char* tool : {"/usr/sbin/cupsd", "/usr/sbin/lpadmin", "/usr/bin/pdftotext", "/usr/bin/pdfinfo"})
            if (!QFileInfo(QString::fromLatin1(tool)).isExecutable())
                return QStringLiteral("%1 is missing (Debian packages cups-daemon, cups-client, poppler-utils)")
                    .arg(QString::fromLatin1(tool));
        if (!dir_.isValid())
            return QStringLiteral("no temporary folder");
        const QString root = dir_.path();
        QFile::setPermissions(root, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner |
                                        QFileDevice::ReadGroup | QFileDevice::ExeGroup | QFileDevice::ReadOther |
                                        QFileDevice::ExeOther);
        for (const char* sub : {"etc", "spool", "tmp", "cache", "state", "log", "out", "bin/backend"})
            QDir(root).mkpath(QString::fromLatin1(sub));
        // The scheduler's helpers run as another user; the job folder takes their files.
        for (const char* open : {"tmp", "out"})
            QFile::setPermissions(root + "/" + open, QFileDevice::Permissions(0x7777));
        for (const char* helper : {"filter", "daemon", "cgi-bin", "driver", "notifier", "monitor", "command"})
            if (QFileInfo::exists(QStringLiteral("/usr/lib/cups/") + helper))
                QFile::link(QStringLiteral("/usr/lib/cups/") + helper, root + "/bin/" + helper);
        const QByteArray r = root.toLocal8Bit();
        const bool written =
            writeFile(root + "/bin/backend/capture",
                      "#!/bin/sh\n"
                      "# Without arguments: the device's description. Otherwise the job into a file of its own.\n"
                      "if [ $# -eq 0 ]; then echo 'direct capture \"Unknown\" \"Capture to a file\"'; exit 0; fi\n"
                      "out=" +
                          r +
                          "/out/job-$1\n"
                          "if [ -n \"$6\" ]; then cat \"$6\" > \"$out.part\"; else cat > \"$out.part\"; fi\n"
                          "chmod 644 \"$out.part\"\n"
                          "mv \"$out.part\" \"$out.pdf\"\n",
                      true) &&
            writeFile(root + "/cupsd.conf", "Listen " + r +
                                                "/cups.sock\nLogLevel info\nBrowsing No\nWebInterface No\n"
                                                "DefaultAuthType None\n<Location />\n  Order allow,deny\n  Allow all\n"
                                                "</Location>\n") &&
            writeFile(root + "/cups-files.conf",
                      "ServerRoot " + r + "/etc\nServerBin " + r + "/bin\nRequestRoot " + r + "/spool\nTempDir " + r +
                          "/tmp\nCacheDir " + r + "/cache\nStateDir " + r + "/state\nAccessLog " + r +
                          "/log/access_log\nErrorLog " + r + "/log/error_log\nPageLog " + r +
                          "/log/page_log\nPrintcap " + r + "/printcap\nSandboxing Relaxed\n");
        if (!written)
            return QStringLiteral("cannot write the scheduler's configuration");
        cupsd_.start(QStringLiteral("/usr/sbin/cupsd"),
                     {"-f", "-c", root + "/cupsd.conf", "-s", root + "/cups-files.conf"});
        if (!cupsd_.waitForStarted(5000))
            return QStringLiteral("cupsd does not start");
        const QString socket = root + "/cups.sock";
        for (int i = 0; i < 100 && !QFileInfo::exists(socket); ++i)
            QTest::qWait(100);
        if (!QFileInfo::exists(socket))
            return QStringLiteral("cupsd did not open its socket (not root?): ") + readLog();
        qputenv("CUPS_SERVER", socket.toLocal8Bit());
        qputenv("PRINTER", "capture");
        qputenv("LPDEST", "capture");
        bool ok = false;
        run(QStringLiteral("/usr/sbin/lpadmin"), {"-p", "capture", "-E", "-v", "capture:/jobs", "-m", "raw"}, &ok);
        if (ok)
            run(QStringLiteral("/usr/sbin/lpadmin"), {"-d", "capture"}, &ok);
        if (!ok)
            return QStringLiteral("lpadmin could not add the queue: ") + readLog();
        return {};
    }

    ~PrivateCups()
    {
        if (cupsd_.state() != QProcess::NotRunning) {
            cupsd_.terminate();
            if (!cupsd_.waitForFinished(5000))
                cupsd_.kill();
            cupsd_.waitForFinished(2000);
        }
    }

    // The text of job n, laid out as on the page; when it did not come within 30 seconds, what the
    // printer layer and the scheduler said instead.
    QString jobText(int n)
    {
        if (waitForJob(n))
            return run("/usr/bin/pdftotext", {"-layout", jobPath(n), "-"});
        return QStringLiteral("[no job %1; default printer \"%2\"; scheduler log: %3]")
            .arg(n)
            .arg(QPrinterInfo::defaultPrinterName(), readLog());
    }
    // "landscape" or "portrait" from the job's first page.
    QString jobOrientation(int n)
    {
        if (!waitForJob(n))
            return {};
        const QString info = run("/usr/bin/pdfinfo", {jobPath(n)});
        const auto m = QRegularExpression(QStringLiteral("Page size:\\s+([0-9.]+) x ([0-9.]+)")).match(info);
        if (!m.hasMatch())
            return {};
        return m.captured(1).toDouble() > m.captured(2).toDouble() ? QStringLiteral("landscape")
                                                                   : QStringLiteral("portrait");
    }
    QString readLog()
    {
        QFile f(dir_.path() + "/log/error_log");
        return f.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(f.readAll().right(2000)) : QString();
    }

private:
    QString jobPath(int n) const { return dir_.path() + QStringLiteral("/out/job-%1.pdf").arg(n); }
    bool waitForJob(int n)
    {
        for (int i = 0; i < 300 && !QFileInfo::exists(jobPath(n)); ++i)
            QTest::qWait(100);
        return QFileInfo::exists(jobPath(n));
    }

    // A path without blanks: the backend is a shell script.
    QTemporaryDir dir_{QStringLiteral("/tmp/zandolt-cups-XXXXXX")};
    QProcess cupsd_;
};

class CupsPrinting : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        cups_ = new PrivateCups;
        why_ = cups_->start();
    }
    static void TearDownTestSuite()
    {
        delete cups_;
        cups_ = nullptr;
    }
    void SetUp() override
    {
        if (!why_.isEmpty())
            GTEST_SKIP() << "No private print scheduler: " << why_.toStdString();
        backend_ = std::make_unique<QtBackend>();
        app_ = std::make_unique<App>(backend_->services());
        app_->PrinterFontName = "Courier";
        app_->PrinterFontSize = 10;
        app_->AppDir = files_.path().toStdString() + "/";
        app_->ReportTxtPath = app_->AppDir + "REPORT.TXT";
    }
    void TearDown() override
    {
        app_.reset();
        backend_.reset();
    }
    std::string file(const char* name) const { return app_->AppDir + name; }

    static PrivateCups* cups_;
    static QString why_;
    static int jobs_;
    QTemporaryDir files_;
    std::unique_ptr<QtBackend> backend_;
    std::unique_ptr<App> app_;
};

PrivateCups* CupsPrinting::cups_ = nullptr;
QString CupsPrinting::why_;
int CupsPrinting::jobs_ = 0;

TEST_F(CupsPrinting, TheMonthlyReportFileIsPrintedWholeInLandscape)
{
    ASSERT_TRUE(writeFile(QString::fromStdString(app_->ReportTxtPath),
                          "                 Acme Monthly Test Report for November 2026\r\n"
                          "  #  USER              ID#      1  2  3\r\n"
                          "  1  Doe, Jane         A-1      P  F  -\r\n"));
    PrintReportFile(*app_);
    const int job = ++jobs_;
    const QString text = cups_->jobText(job);
    EXPECT_TRUE(text.contains("Acme Monthly Test Report for November 2026")) << text.toStdString();
    EXPECT_TRUE(text.contains(QRegularExpression("Doe, Jane\\s+A-1\\s+P\\s+F\\s+-"))) << text.toStdString();
    EXPECT_EQ(cups_->jobOrientation(job), "landscape");
}

TEST_F(CupsPrinting, TheViewersPrintButtonPrintsTheSelectionUnderTheCaption)
{
    ASSERT_TRUE(writeFile(QString::fromStdString(file("VIEW.TXT")), "alpha line\r\nbeta line\r\ngamma line\r\n"));
    ViewerRequest request;
    request.path = file("VIEW.TXT");
    request.title = "Selection print check";
    request.viewerFontSize = 10;
    request.printerFontSize = 10;
    ShowInViewer(*app_, request);
    DispForm& viewer = app_->dispForm();
    viewer.TextBox1.userSelectText("beta line\r\ngamma line");
    // The printer dialog is accepted as it comes, with its one copy.
    bool accepted = false;
    QTimer::singleShot(300, [&accepted] {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            dialog->accept();
            accepted = true;
        }
    });
    viewer.PrintBut.userClick();
    EXPECT_TRUE(accepted);
    const QString text = cups_->jobText(++jobs_);
    EXPECT_TRUE(text.contains("Selection print check")) << text.toStdString();
    EXPECT_TRUE(text.contains("beta line")) << text.toStdString();
    EXPECT_TRUE(text.contains("gamma line")) << text.toStdString();
    EXPECT_FALSE(text.contains("alpha line")) << text.toStdString();
    viewer.Unload();
}

TEST_F(CupsPrinting, APassTagReachesThePrinter)
{
    app_->TagType = 2;
    app_->EmployeeCount = 1;
    app_->LastName[0] = "Doe";
    app_->FirstName[0] = "Jane";
    app_->CurrentEmployee = 0;
    PrintTag(*app_);
    const int job = ++jobs_;
    const QString text = cups_->jobText(job);
    EXPECT_EQ(cups_->jobOrientation(job), "portrait");
    EXPECT_TRUE(text.contains("ESD FOOTWEAR TEST")) << text.toStdString();
    EXPECT_TRUE(text.contains("PASS")) << text.toStdString();
    EXPECT_TRUE(text.contains("Jane Doe")) << text.toStdString();
}

} // namespace
} // namespace zandolt::qt
