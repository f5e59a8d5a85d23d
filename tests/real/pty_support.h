// What the tests of the station on pseudo-terminals share: files of the program directory, a socat
// pair, and runs of the emulator on the far end while the station's event loop goes on.
#pragma once

#include "admin/title_form.h"
#include "app.h"
#include "platform/qt/qt_backend.h"
#include "station/err_msg_frm.h"
#include "station/name_form.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace zandolt::qt {

inline std::string readFile(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll().toStdString() : std::string();
}

inline void writeFile(const QString& path, const std::string& text)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
    f.write(text.data(), static_cast<qint64>(text.size()));
}

// NAMES.TXT of one employee, Jane Doe with this ID, who wears both straps on the tester's limits.
inline std::string JaneNames(const std::string& id)
{
    return "# names\r\n# example\r\nDoe, Jane, " + id +
           ", -1.00, -1.00, -1.00, -1.00, -1, -1, A, 01/05/2026, 01/05/2026, 1, 12/31/2030, " + std::string(372, 'A') +
           ", 0, , 0\r\n";
}

struct EmulatorRun
{
    int exitCode = -1;
    std::vector<std::string> lines;

    std::vector<std::string> starting(const std::string& prefix) const
    {
        std::vector<std::string> out;
        for (const std::string& l : lines)
            if (l.rfind(prefix, 0) == 0)
                out.push_back(l);
        return out;
    }
};

// Runs the emulator on `device` with these options and commands, the event loop of the station
// running all the while.
inline EmulatorRun runEmulator(const QString& device, const QStringList& options, const QStringList& commands,
                               int waitMs)
{
    QStringList args{device};
    args << options;
    for (const QString& c : commands)
        args << "--cmd" << c;
    args << "--wait-ms" << QString::number(waitMs);
    QProcess emulator;
    emulator.start(QStringLiteral(ZANDOLT_TESTER_EMULATOR), args);
    EmulatorRun run;
    if (!QTest::qWaitFor([&] { return emulator.state() == QProcess::NotRunning; }, waitMs + 10000)) {
        emulator.kill();
        emulator.waitForFinished(2000);
        ADD_FAILURE() << "the emulator did not end";
        return run;
    }
    run.exitCode = emulator.exitStatus() == QProcess::NormalExit ? emulator.exitCode() : -1;
    // The emulator's side of the conversation is printed for whoever reads the test's output.
    for (const QByteArray& line : emulator.readAllStandardOutput().split('\n'))
        if (!line.isEmpty())
            std::printf("  emulator: %s\n", run.lines.emplace_back(line.toStdString()).c_str());
    return run;
}

// The station of a test in its own program directory: started in it with the main window loaded,
// and whatever waits for someone answered (the title screen, the error window, a message box by its
// default button, Yes to an enrolment), the texts of the last two kept in `messages`.
class StationInTempDir : public ::testing::Test
{
protected:
    // Starts socat with a raw pseudo-terminal pair whose ends are the links a and b of the program
    // directory, a the station's port `port` in PORTS.TXT; true once both exist. The pair goes with
    // the station.
    bool startPtyPair(int port, const QString& a, const QString& b)
    {
        ports += std::to_string(port) + " " + dir.filePath(a).toStdString() + "\n";
        writeFile(dir.filePath("PORTS.TXT"), ports);
        QProcess& socat = *pairs.emplace_back(std::make_unique<QProcess>());
        socat.start(QStringLiteral(ZANDOLT_SOCAT),
                    {"pty,raw,echo=0,link=" + dir.filePath(a), "pty,raw,echo=0,link=" + dir.filePath(b)});
        return QTest::qWaitFor([&] { return QFile::exists(dir.filePath(a)) && QFile::exists(dir.filePath(b)); }, 5000);
    }

    void startStation()
    {
        previousDirectory = QDir::currentPath();
        ASSERT_TRUE(QDir::setCurrent(dir.path()));
        backend = std::make_unique<QtBackend>();
        app = std::make_unique<App>(backend->services());
        QObject::connect(&closer, &QTimer::timeout, [this] {
            if (app->isLoaded(&app->titleForm()))
                app->titleForm().Unload();
            if (app->isLoaded(&app->errMsgFrm())) {
                messages.push_back(app->errMsgFrm().LabelText.caption());
                app->errMsgFrm().Unload();
            }
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                messages.push_back(box->text().toStdString());
                box->defaultButton() ? box->defaultButton()->click() : box->reject();
            }
        });
        closer.start(20);
        app->nameForm().Load();
    }

    void TearDown() override { stopStation(); }
    void stopStation()
    {
        closer.stop();
        app.reset();
        backend.reset();
        if (!previousDirectory.isEmpty())
            QDir::setCurrent(previousDirectory);
        for (auto& socat : pairs) {
            socat->terminate();
            socat->waitForFinished(3000);
        }
    }

    QTemporaryDir dir;
    QString previousDirectory;
    std::unique_ptr<QtBackend> backend;
    std::unique_ptr<App> app;
    QTimer closer;
    std::vector<std::string> messages;
    std::vector<std::unique_ptr<QProcess>> pairs;
    std::string ports;
};

} // namespace zandolt::qt
