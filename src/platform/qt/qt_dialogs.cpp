#include "platform/qt/qt_dialogs.h"

#include "platform/qt/qt_text.h"
#include "platform/ui.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontDialog>
#include <QInputDialog>

#include <cstdio>

namespace zandolt::qt {

namespace {

QString PromptText(const std::string& prompt)
{
    QString s = TextToQt(prompt);
    s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    s.replace(QChar('\r'), QChar('\n'));
    return s;
}

QString TitleText(const std::string& title)
{
    return title.empty() ? QApplication::applicationName() : TextToQt(title);
}

} // namespace

std::vector<std::pair<QMessageBox::StandardButton, int>> MessageBoxButtons(int buttons)
{
    using B = QMessageBox;
    switch (buttons & msgbox::ButtonMask) {
    case msgbox::OKCancel:
        return {{B::Ok, msgbox::OK}, {B::Cancel, msgbox::Cancel}};
    case msgbox::AbortRetryIgnore:
        return {{B::Abort, msgbox::Abort}, {B::Retry, msgbox::Retry}, {B::Ignore, msgbox::Ignore}};
    case msgbox::YesNoCancel:
        return {{B::Yes, msgbox::Yes}, {B::No, msgbox::No}, {B::Cancel, msgbox::Cancel}};
    case msgbox::YesNo:
        return {{B::Yes, msgbox::Yes}, {B::No, msgbox::No}};
    case msgbox::RetryCancel:
        return {{B::Retry, msgbox::Retry}, {B::Cancel, msgbox::Cancel}};
    default:
        return {{B::Ok, msgbox::OK}};
    }
}

QMessageBox::Icon MessageBoxIcon(int buttons)
{
    switch (buttons & msgbox::IconMask) {
    case msgbox::Critical:
        return QMessageBox::Critical;
    case msgbox::Question:
        return QMessageBox::Question;
    case msgbox::Exclamation:
        return QMessageBox::Warning;
    case msgbox::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

int MessageBoxDismissAnswer(int buttons)
{
    const auto set = MessageBoxButtons(buttons);
    for (const auto& [button, answer] : set)
        if (answer == msgbox::Cancel)
            return answer;
    return set.back().second;
}

int RunMessageBox(const std::string& prompt, int buttons, const std::string& title)
{
    const auto set = MessageBoxButtons(buttons);
    QMessageBox box;
    box.setWindowModality(Qt::ApplicationModal);
    box.setIcon(MessageBoxIcon(buttons));
    box.setWindowTitle(TitleText(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(PromptText(prompt));
    QMessageBox::StandardButtons standard;
    for (const auto& entry : set)
        standard |= entry.first;
    box.setStandardButtons(standard);
    // 256 makes the second button the default one, 512 the third.
    const size_t defaultIndex = static_cast<size_t>((buttons >> 8) & 3);
    box.setDefaultButton(set[defaultIndex < set.size() ? defaultIndex : 0].first);
    box.exec();
    const QMessageBox::StandardButton clicked = box.standardButton(box.clickedButton());
    for (const auto& [button, answer] : set)
        if (button == clicked)
            return answer;
    return MessageBoxDismissAnswer(buttons);
}

std::string RunInputBox(const std::string& prompt, const std::string& title, const std::string& defaultText)
{
    QInputDialog dialog;
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setWindowTitle(TitleText(title));
    dialog.setLabelText(PromptText(prompt));
    dialog.setTextValue(TextToQt(defaultText));
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return TextFromQt(dialog.textValue());
}

bool RunFontDialog(std::string& name, float& size)
{
    QFont seed(TextToQt(name));
    if (size > 0)
        seed.setPointSizeF(size);
    QFontDialog dialog(seed);
    dialog.setWindowModality(Qt::ApplicationModal);
    // Reports are laid out in columns: only fixed-pitch fonts keep them.
    dialog.setOption(QFontDialog::MonospacedFonts, true);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const QFont chosen = dialog.selectedFont();
    name = TextFromQt(chosen.family());
    size = static_cast<float>(chosen.pointSizeF());
    return true;
}

void ShowHandlerFailure(const char* what)
{
    std::fprintf(stderr, "zandolt: an event handler failed: %s\n", what);
    RunMessageBox(std::string("Run-time error: ") + what, msgbox::OKOnly | msgbox::Critical, "Zandolt ESD Test Log");
}

} // namespace zandolt::qt
