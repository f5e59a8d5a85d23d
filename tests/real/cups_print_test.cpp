// Printing on a real print system: a private CUPS scheduler with its own configuration and spool in
// a temporary folder, and one queue whose backend writes every job to a file. The Qt printer makes
// its PDF and hands it to that scheduler as it would to the plant's printer; the job's text is then
// read back with pdftotext. Without the scheduler's programs, or where it cannot start, the tests
// say why and are skipped.
#include "app.h"
#include "automation/tag_printing.h"
#include "child_process.h"
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

bool writeFile(const QString& path, const QByteArray& text)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(text) == text.size();
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
        const QString root = dir_.path();
        QFile::setPermissions(root, QFileDevice::Permissions(0x7755));
        for (const char* sub : {"etc", "spool", "tmp", "cache", "state", "log", "out", "bin/backend"})
            QDir(root).mkpath(QString::fromLatin1(sub));
        // The scheduler's helpers run as another user; the job folder takes their files.
        for (const char* open : {"tmp", "out"})
            QFile::setPermissions(root + "/" + open, QFileDevice::Permissions(0x7777));
        for (const char* helper : {"filter", "daemon", "cgi-bin", "driver", "notifier", "monitor", "command"})
            if (QFileInfo::exists(QStringLiteral("/usr/lib/cups/") + helper))
                QFile::link(QStringLiteral("/usr/lib/cups/") + helper, root + "/bin/" + helper);
        const QByteArray r = root.toLocal8Bit(), backend = r + "/bin/backend/capture";
        if (!writeFile(backend, "#!/bin/sh\n"
                                "# Without arguments: the device's description. Otherwise the job into a file.\n"
                                "if [ $# -eq 0 ]; then echo 'direct capture \"Unknown\" \"Capture\"'; exit 0; fi\n"
                                "out=" +
                                    r +
                                    "/out/job-$1\n"
                                    "if [ -n \"$6\" ]; then cat \"$6\" > \"$out.part\"; else cat > \"$out.part\"; fi\n"
                                    "chmod 644 \"$out.part\"\n"
                                    "mv \"$out.part\" \"$out.pdf\"\n") ||
            !QFile::setPermissions(backend, QFileDevice::Permissions(0x7755)) ||
            !writeFile(root + "/cupsd.conf", "Listen " + r +
                                                 "/cups.sock\nLogLevel info\nBrowsing No\nWebInterface No\n"
                                                 "DefaultAuthType None\n<Location />\n  Order allow,deny\n"
                                                 "  Allow all\n</Location>\n") ||
            !writeFile(root + "/cups-files.conf",
                       "ServerRoot " + r + "/etc\nServerBin " + r + "/bin\nRequestRoot " + r + "/spool\nTempDir " + r +
                           "/tmp\nCacheDir " + r + "/cache\nStateDir " + r + "/state\nAccessLog " + r +
                           "/log/access_log\nErrorLog " + r + "/log/error_log\nPageLog " + r +
                           "/log/page_log\nPrintcap " + r + "/printcap\nSandboxing Relaxed\n"))
            return QStringLiteral("cannot write the scheduler's configuration");
        cupsd_.start(QStringLiteral("/usr/sbin/cupsd"),
                     {"-f", "-c", root + "/cupsd.conf", "-s", root + "/cups-files.conf"});
        if (!QTest::qWaitFor([&] { return QFileInfo::exists(root + "/cups.sock"); }, 10000))
            return QStringLiteral("cupsd did not open its socket (not root?): ") + readLog();
        qputenv("CUPS_SERVER", r + "/cups.sock");
        qputenv("PRINTER", "capture");
        qputenv("LPDEST", "capture");
        if (testing::RunProgram({"/usr/sbin/lpadmin", "-p", "capture", "-E", "-v", "capture:/jobs", "-m", "raw"})
                .code ||
            testing::RunProgram({"/usr/sbin/lpadmin", "-d", "capture"}).code)
            return QStringLiteral("lpadmin could not add the queue: ") + readLog();
        return {};
    }

    ~PrivateCups()
    {
        cupsd_.terminate();
        if (!cupsd_.waitForFinished(5000))
            cupsd_.kill();
    }

    // Job n, once it came (within 30 seconds): its text laid out as on the page and whether its
    // first page is wider than high. When it did not come, what the printer layer and the
    // scheduler said instead.
    QString job(int n, bool* landscape)
    {
        const QString pdf = dir_.path() + QStringLiteral("/out/job-%1.pdf").arg(n);
        if (!QTest::qWaitFor([&] { return QFileInfo::exists(pdf); }, 30000))
            return QStringLiteral("[no job %1; default printer \"%2\"; scheduler log: %3]")
                .arg(n)
                .arg(QPrinterInfo::defaultPrinterName(), readLog());
        const std::string file = pdf.toStdString();
        const auto size = QRegularExpression(QStringLiteral("Page size:\\s+([0-9.]+) x ([0-9.]+)"))
                              .match(QString::fromStdString(testing::RunProgram({"/usr/bin/pdfinfo", file}).out));
        *landscape = size.hasMatch() && size.captured(1).toDouble() > size.captured(2).toDouble();
        return QString::fromStdString(testing::RunProgram({"/usr/bin/pdftotext", "-layout", file, "-"}).out);
    }
    QString readLog()
    {
        QFile f(dir_.path() + "/log/error_log");
        return f.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(f.readAll().right(2000)) : QString();
    }

private:
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
    // The text of the next job, which must match `pattern` (across lines) and lie as said.
    void expectJob(const QString& pattern, bool landscape)
    {
        bool wide = false;
        const QString text = cups_->job(++jobs_, &wide);
        EXPECT_TRUE(text.contains(QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption)))
            << text.toStdString();
        EXPECT_EQ(wide, landscape);
    }

    static inline PrivateCups* cups_ = nullptr;
    static inline QString why_;
    static inline int jobs_ = 0;
    QTemporaryDir files_;
    std::unique_ptr<QtBackend> backend_;
    std::unique_ptr<App> app_;
};

TEST_F(CupsPrinting, TheMonthlyReportFileIsPrintedWholeInLandscape)
{
    ASSERT_TRUE(writeFile(QString::fromStdString(app_->ReportTxtPath),
                          "                 Acme Monthly Test Report for November 2026\r\n"
                          "  #  USER              ID#      1  2  3\r\n"
                          "  1  Doe, Jane         A-1      P  F  -\r\n"));
    PrintReportFile(*app_);
    expectJob("Acme Monthly Test Report for November 2026.*USER\\s+ID#\\s+1\\s+2\\s+3.*Doe, Jane\\s+A-1\\s+P\\s+F\\s+-",
              true);
}

TEST_F(CupsPrinting, TheViewersPrintButtonPrintsTheSelectionUnderTheCaption)
{
    const std::string path = app_->AppDir + "VIEW.TXT";
    ASSERT_TRUE(writeFile(QString::fromStdString(path), "alpha line\r\nbeta line\r\ngamma line\r\n"));
    ViewerRequest request;
    request.path = path;
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
    expectJob("^(?!.*alpha line).*Selection print check.*beta line.*gamma line", false);
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
    expectJob("ESD FOOTWEAR TEST.*PASS.*Jane Doe", false);
}

} // namespace
} // namespace zandolt::qt
