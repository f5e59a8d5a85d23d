// zandolt_tester_emulator DEVICE [--reader KIND] [--cmd "COMMAND"]... [--wait-ms MS]: plays the combo
// tester on a serial device (in practice one end of a pseudo-terminal pair whose other end is the
// station's tester port), or with --reader a card reader on the station's reader port. Commands come from stdin, one
// per line, or from --cmd options; with --cmd the emulator runs them in order, listens for the station's answer for up
// to --wait-ms (3000 when not given), and ends.
#include "reader_commands.h"
#include "station/tester_link.h"
#include "tester_commands.h"
#include "tester_device.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using namespace zandolt::emulator;
using Clock = std::chrono::steady_clock;

void say(const std::string& line)
{
    std::fputs(line.c_str(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

int msSince(Clock::time_point t)
{
    return static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - t).count());
}

class Session
{
public:
    explicit Session(TesterDevice& device) : device_(device)
    {
        dtrWatched_ = device_.dsrHigh(dtrHigh_);
        dtrChanged_ = Clock::now();
    }

    // Reports what the station sent during `ms`; with untilAnswer, stops shortly after the answer to
    // the last message, which may have come already. False when the device has gone.
    bool listen(int ms, bool untilAnswer)
    {
        auto deadline = Clock::now() + std::chrono::milliseconds(ms);
        if (untilAnswer && answered_)
            deadline = std::min(deadline, settleTime());
        for (;;) {
            if (!takeWhatWaits(untilAnswer, deadline))
                return false;
            const int left = static_cast<int>(
                std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count());
            if (left <= 0)
                return true;
            pollfd p{device_.fd(), POLLIN, 0};
            // The modem lines give no notice of their own: they are looked at every 2 ms.
            ::poll(&p, 1, dtrWatched_ ? std::min(left, 2) : left);
        }
    }

    // Whether a message went out and no byte has come since.
    bool awaitingAnswer() const { return sentAny_ && !answered_; }

    bool send(const std::string& bytes, bool awaitsAnswer)
    {
        auto now = Clock::now();
        if (!takeWhatWaits(false, now))
            return false;
        if (!device_.write(bytes)) {
            say("ERROR the device refused the write");
            return false;
        }
        say("SENT " + DisplayText(bytes));
        // A reader's data gets no answer from the station; the last tester message may still.
        if (awaitsAnswer) {
            sentAny_ = true;
            answered_ = false;
        }
        return true;
    }

    // Runs one command; false when the session should end.
    bool run(const TesterCommand& c)
    {
        switch (c.kind) {
        case CommandKind::Empty:
            return true;
        case CommandKind::Send:
            return send(c.bytes, c.awaitsAnswer);
        case CommandKind::Wait:
            return listen(c.waitMs, false);
        case CommandKind::Help:
            std::fputs((HelpText() + DtrNote(dtrWatched_)).c_str(), stdout);
            std::fflush(stdout);
            return true;
        case CommandKind::Quit:
            return false;
        case CommandKind::Invalid:
            say("ERROR " + c.error);
            return true;
        }
        return true;
    }

private:
    // The pulse follows the byte by 40 ms and lasts at most 383 ms; without the modem lines only
    // a straggling byte is worth waiting for.
    Clock::time_point settleTime() const { return Clock::now() + std::chrono::milliseconds(dtrWatched_ ? 500 : 50); }

    bool takeWhatWaits(bool untilAnswer, Clock::time_point& deadline)
    {
        std::string got;
        const bool alive = device_.readAvailable(got);
        for (char ch : got)
            say(ReceivedByteText(static_cast<unsigned char>(ch)));
        bool high = dtrHigh_;
        if (dtrWatched_ && device_.dsrHigh(high) && high != dtrHigh_) {
            say(high ? "DTR high after " + std::to_string(msSince(dtrChanged_)) + " ms low" : "DTR low");
            dtrHigh_ = high;
            dtrChanged_ = Clock::now();
        }
        if (!got.empty() && !answered_) {
            answered_ = true;
            if (untilAnswer)
                deadline = std::min(deadline, settleTime());
        }
        if (!alive)
            say("ERROR the device has closed");
        return alive;
    }

    TesterDevice& device_;
    bool dtrWatched_ = false;
    bool dtrHigh_ = false;
    bool sentAny_ = false;
    bool answered_ = false;
    Clock::time_point dtrChanged_;
};

// After the last command, the answer to the last message for up to waitMs.
int awaitAnswer(Session& session, int waitMs)
{
    if (!session.awaitingAnswer())
        return 0;
    if (!session.listen(waitMs, true))
        return 1;
    if (session.awaitingAnswer())
        say("NO ANSWER within " + std::to_string(waitMs) + " ms");
    return 0;
}

// Lines from stdin while listening to the device, until quit or the end of the input, which waits
// for the last answer as --cmd does.
int interactive(Session& session, TesterDevice& device, int waitMs)
{
    say("Type help for the commands.");
    std::string pending;
    for (;;) {
        pollfd p[2] = {{STDIN_FILENO, POLLIN, 0}, {device.fd(), POLLIN, 0}};
        ::poll(p, 2, device.modemLinesVisible() ? 2 : -1);
        if (!session.listen(0, false))
            return 1;
        if (!(p[0].revents & (POLLIN | POLLHUP)))
            continue;
        char buf[512];
        const ssize_t n = ::read(STDIN_FILENO, buf, sizeof buf);
        if (n <= 0)
            return awaitAnswer(session, waitMs);
        pending.append(buf, static_cast<size_t>(n));
        for (size_t nl; (nl = pending.find('\n')) != std::string::npos;) {
            std::string line = pending.substr(0, nl);
            pending.erase(0, nl + 1);
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            const TesterCommand c = ParseTesterCommand(line);
            if (c.kind == CommandKind::Quit)
                return 0;
            if (!session.run(c))
                return 1;
        }
    }
}

int usage()
{
    std::fprintf(stderr, "usage: zandolt_tester_emulator DEVICE [--reader hid|casi|rs232|rw400] [--cmd \"COMMAND\"]... "
                         "[--wait-ms MS]\n"
                         "       zandolt_tester_emulator --help\n");
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    std::string devicePath;
    std::vector<TesterCommand> commands;
    int waitMs = 3000;
    std::string lineSettings = zandolt::TesterPortSettings;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--help" || arg == "-h") {
            std::printf("usage: zandolt_tester_emulator DEVICE [--reader hid|casi|rs232|rw400] [--cmd \"COMMAND\"]... "
                        "[--wait-ms MS]\n%s",
                        HelpText().c_str());
            std::printf("Without --cmd the commands come from stdin. With --cmd (repeatable) they run in order, then\n"
                        "the emulator listens for the answer for --wait-ms milliseconds (3000) and ends; so does\n"
                        "the end of stdin.\n"
                        "On a serial line the station's DTR pulse shows on DSR as \"DTR low\" and \"DTR high\";\n"
                        "a pseudo-terminal has no modem lines, so there only the answer byte shows.\n"
                        "--reader sets the device to that reader's line settings (the tester's are 9600,N,7,1).\n");
            return 0;
        }
        if (arg == "--cmd" && i + 1 < argc) {
            commands.push_back(ParseTesterCommand(argv[++i]));
            if (commands.back().kind == CommandKind::Invalid) {
                std::fprintf(stderr, "zandolt_tester_emulator: %s\n", commands.back().error.c_str());
                return 2;
            }
        } else if (arg == "--reader" && i + 1 < argc) {
            const ReaderKind* kind = FindReaderKind(argv[++i]);
            if (!kind)
                return usage();
            lineSettings = kind->settings;
        } else if (arg == "--wait-ms" && i + 1 < argc) {
            char* end = nullptr;
            const long ms = std::strtol(argv[++i], &end, 10);
            if (*end != '\0' || ms < 0 || ms > 600000)
                return usage();
            waitMs = static_cast<int>(ms);
        } else if (devicePath.empty() && arg.rfind("--", 0) != 0) {
            devicePath = arg;
        } else {
            return usage();
        }
    }
    if (devicePath.empty())
        return usage();

    TesterDevice device;
    std::string error;
    if (!device.open(devicePath, lineSettings, error)) {
        std::fprintf(stderr, "zandolt_tester_emulator: %s\n", error.c_str());
        return 1;
    }
    say("OPEN " + devicePath + ": " + device.settingsText());
    Session session(device);
    if (commands.empty())
        return interactive(session, device, waitMs);

    for (const TesterCommand& c : commands)
        if (c.kind == CommandKind::Quit || !session.run(c))
            return c.kind == CommandKind::Quit ? 0 : 1;
    return awaitAnswer(session, waitMs);
}
