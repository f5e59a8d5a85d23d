#include "station/card_readers.h"

#include "admin/unknown_enrolment.h"
#include "app.h"
#include "data/blanks.h"
#include "data/number_text.h"
#include "platform/text_encoding.h"
#include "station/err_msg_frm.h"
#include "station/identification.h"
#include "station/name_form.h"
#include "station/rs232_form.h"

#include <algorithm>
#include <cctype>

namespace zandolt {

namespace {

bool endsLine(const std::string& s)
{
    return !s.empty() && (s.back() == '\r' || s.back() == '\n');
}

// The line as a reader sends it: blanks trimmed, then up to two control characters at the end
// (its line end) removed.
std::string cleanLine(const std::string& s)
{
    std::string t(TrimBlanks(s));
    for (int i = 0; i < 2 && !t.empty() && static_cast<unsigned char>(t.back()) < 34; ++i)
        t.pop_back();
    return t;
}

// A card presented during a test ends that test.
void closeRunningTest(App& app)
{
    if (app.TestWindowOpenFlag != 0)
        CloseTestWindow(app);
}

// The error window with the title it has, as a reader station shows a card it doesn't know.
void showCardNotFound(App& app, const std::string& text)
{
    ErrMsgFrm& e = app.errMsgFrm();
    e.Load();
    e.LabelText.setCaption(text);
    if (!e.modal())
        e.ShowModal();
}

} // namespace

std::string CasiBitsToHex(const std::string& data)
{
    static const char digits[] = "0123456789ABCDEF";
    std::string hex;
    for (size_t i = 0; i < data.size(); i += 4) {
        int v = 0;
        for (size_t j = i; j < i + 4; ++j)
            v = v * 2 + (j < data.size() && static_cast<unsigned char>(data[j]) >= 248 ? 1 : 0);
        hex += digits[v];
    }
    return hex;
}

std::string Rw400ToHex(std::string data)
{
    if (data.size() > 15)
        data.erase(0, 2);
    size_t first = data.find_first_not_of('\0');
    data.erase(0, first == std::string::npos ? data.size() : first);
    std::int64_t number = 0;
    for (size_t i = 0; i < data.size() && number < 0x800000; ++i)
        number = number * 256 + static_cast<unsigned char>(data[i]);
    // The highest set bit is the reader's marker in front of the card data.
    for (int bit = 30; bit >= 0; --bit)
        if (number & (std::int64_t{1} << bit)) {
            number &= ~(std::int64_t{1} << bit);
            break;
        }
    static const char digits[] = "0123456789ABCDEF";
    std::string hex;
    do {
        hex.insert(hex.begin(), digits[number & 15]);
        number >>= 4;
    } while (number > 0);
    return hex;
}

std::int64_t CardNumber(const std::string& hexDigits, int skip, int use)
{
    std::int64_t number = 0;
    int toSkip = std::max(skip, 0);
    int left = use;
    for (char c : hexDigits) {
        if (left <= 0)
            break;
        if (!std::isxdigit(static_cast<unsigned char>(c)))
            continue;
        const int v = std::isdigit(static_cast<unsigned char>(c)) ? c - '0' : std::toupper(c) - 'A' + 10;
        if (toSkip >= 4) {
            toSkip -= 4;
            continue;
        }
        int bits = 4 - toSkip;
        int value = v & ((1 << bits) - 1);
        toSkip = 0;
        if (bits > left) {
            value >>= bits - left;
            bits = left;
        }
        number = (number << bits) | value;
        left -= bits;
    }
    return number;
}

void ReadCardData(App& app)
{
    NameForm& f = app.nameForm();
    const int flag = app.BarCodeFlag;
    if (app.ProxText.size() < (flag == 5 ? 3u : 4u))
        return; // the next data adds to it
    if (flag == 3) {
        f.NameOrIDText.setText(CasiBitsToHex(app.ProxText));
        app.ProxText.clear();
    } else if (flag == 2) {
        if (!endsLine(app.ProxText)) {
            f.NameOrIDText.setText(app.ProxText);
            return;
        }
        f.NameOrIDText.setText(cleanLine(app.ProxText));
    } else if (flag == 5) {
        if (app.ProxText.find("????") != std::string::npos) {
            app.ProxText.clear(); // the reader's word for a card it could not read
            return;
        }
        f.NameOrIDText.setText(Rw400ToHex(app.ProxText));
        app.ProxText.clear();
    } else {
        return;
    }

    closeRunningTest(app);
    const std::int64_t card = CardNumber(f.NameOrIDText.text(), app.SkipProxBits, app.UseProxMiddleBits);
    app.CurrentEmployee = -1;
    for (int row = 0; row < app.EmployeeCount; ++row) {
        const std::string& badge = app.BadgeNum[static_cast<size_t>(row)];
        if (IsNumeric(badge) && Val(badge) == static_cast<double>(card)) {
            app.CurrentEmployee = static_cast<int16>(row);
            break;
        }
    }
    if (app.CurrentEmployee < 0)
        app.CurrentEmployee = static_cast<int16>(app.AddUnknownFlag != 0 ? AddUnknownEmployee(app, std::to_string(card))
                                                                         : CatchAllRow(app));
    if (app.CurrentEmployee < 0)
        showCardNotFound(app, app.UseBadgeToIdentifyFlag == 0 ? "Sorry, your name was not found."
                                                              : "Sorry, your ID was not found");
    else
        AcceptEmployee(app, true);
    f.NameOrIDText.setText("");
    app.ProxText.clear();
}

void HandleGeneralRS232Reading(App& app)
{
    NameForm& f = app.nameForm();
    if (app.ProxText.size() < 4)
        return;
    if (!endsLine(app.ProxText)) {
        f.NameOrIDText.setText(app.ProxText);
        return;
    }
    const std::string text = cleanLine(app.ProxText);
    f.NameOrIDText.setText(text);
    closeRunningTest(app);
    // Compared as the employee file spells its names, whichever code page the reader sends.
    const std::string trimmed =
        InEncoding(TrimIdentification(text, app.UseLastChars, app.SkipChars), app.NamesEncoding);
    app.CurrentEmployee = -1;
    for (int row = 0; row < app.EmployeeCount && app.CurrentEmployee < 0; ++row) {
        const size_t r = static_cast<size_t>(row);
        if ((app.UseBadgeToIdentifyFlag != 0 && EqualIgnoringCase(trimmed, app.BadgeNum[r])) ||
            EqualIgnoringCase(trimmed, app.FullName[r]))
            app.CurrentEmployee = static_cast<int16>(row);
    }
    if (app.CurrentEmployee < 0)
        app.CurrentEmployee =
            static_cast<int16>(app.AddUnknownFlag != 0 ? AddUnknownEmployee(app, trimmed) : CatchAllRow(app));
    if (app.CurrentEmployee < 0)
        ShowErrorWindow(app, "ID not found",
                        app.UseBadgeToIdentifyFlag == 0 ? "Sorry, your name was not found,"
                                                        : "Sorry, your ID was not found");
    else
        AcceptEmployee(app, true);
    app.ProxText.clear();
}

void ReaderPortReceived(App& app)
{
    NameForm& f = app.nameForm();
    const int flag = app.BarCodeFlag;
    if (flag == 5) {
        // Binary data is read only after a silence, since a card comes in several pieces.
        if (!f.Timer1.enabled()) {
            f.Timer1.setInterval(100);
            f.Timer1.setEnabled(true);
        }
        return;
    }
    std::string arrived;
    if (f.ProxComm().read(arrived))
        app.ProxText += arrived;
    if (flag == 2) {
        ReadCardData(app);
    } else if (flag == 3) {
        if (!f.Timer1.enabled()) {
            f.Timer1.setInterval(200);
            f.Timer1.setEnabled(true);
        }
    } else if (flag == 4) {
        HandleGeneralRS232Reading(app);
    }
}

void ReaderSilenceTimer(App& app)
{
    NameForm& f = app.nameForm();
    f.Timer1.setEnabled(false);
    if (app.BarCodeFlag == 5) {
        std::string arrived;
        if (f.ProxComm().read(arrived))
            app.ProxText += arrived;
        if (f.ProxComm().isOpen())
            f.OpenReaderPort();
    }
    ReadCardData(app);
}

} // namespace zandolt
