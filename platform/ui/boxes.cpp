#include "platform/ui/boxes.h"

#include "platform/ui/application.h"
#include "platform/ui/boxlayout.h"
#include "platform/ui/focus.h"
#include "platform/ui/units.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

QString &title()
{
    static QString text = u"Tarvelo"_s;
    return text;
}

QMessageBox::Icon iconOf(Icon icon)
{
    switch (icon) {
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QString captionOf(QMessageBox::StandardButton button)
{
    switch (button) {
    case QMessageBox::Yes:
        return u"&Sim"_s;
    case QMessageBox::No:
        return u"&Não"_s;
    case QMessageBox::Cancel:
        return u"Cancelar"_s;
    default:
        return u"OK"_s;
    }
}

void addButtons(QMessageBox &box, QMessageBox::StandardButtons buttons)
{
    for (const auto button : {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}) {
        if (buttons.testFlag(button)) {
            box.addButton(button)->setText(captionOf(button));
        }
    }
}

/// Without a check for the program's end, which the callers make.
QMessageBox::StandardButton show(const QString &text, Icon icon, const QString &caption,
                                 QMessageBox::StandardButton accept, QMessageBox::StandardButton refuse,
                                 const QString &note = {})
{
    // On the heap: a parent that goes while the box is up takes the box along.
    const QPointer<QMessageBox> box = new Box(frontWindow());
    box->setIcon(iconOf(icon));
    box->setWindowTitle(caption);
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    box->setInformativeText(note);
    alignTabs(*box);
    addButtons(*box, accept | refuse);
    box->setDefaultButton(accept);
    box->setEscapeButton(refuse);
    const auto answer = runDialog(box.data());
    delete box;
    return QMessageBox::StandardButton(answer);
}

QInputDialog *newInputDialog(const QString &prompt, const QString &caption, const QString &defaultText)
{
    auto *dialog = new QInputDialog(frontWindow());
    dialog->setInputMode(QInputDialog::TextInput);
    dialog->setWindowTitle(caption);
    dialog->setLabelText(prompt);
    dialog->setTextValue(defaultText);
    dialog->setOkButtonText(u"OK"_s);
    dialog->setCancelButtonText(u"Cancelar"_s);
    for (auto *label : dialog->findChildren<QLabel *>()) {
        label->setTextFormat(Qt::PlainText);
    }
    fitInput(*dialog);
    return dialog;
}

} // namespace

int runDialog(const QPointer<QDialog> &dialog)
{
    const UnitPause pause;
    const QPointer<QWidget> caller = dialog->parentWidget();
    FocusTracker::instance().noteModal();
    dialog->setWindowModality(Qt::ApplicationModal);
    const int answer = dialog->exec();
    backTo(caller);
    return answer;
}

void setBoxTitle(const QString &text)
{
    title() = text;
}

QString boxTitle()
{
    return title();
}

void ClosingBox(const QString &text, const QString &caption)
{
    show(text, Icon::Critical, caption, QMessageBox::Ok, QMessageBox::Ok,
         u"O programa será fechado. O que já foi gravado continua gravado."_s);
}

void MsgBox(const QString &text, Icon icon, const QString &caption)
{
    show(text, icon, caption, QMessageBox::Ok, QMessageBox::Ok);
    checkEnded();
}

bool Confirm(const QString &text, const QString &caption)
{
    const auto answer = show(text, Icon::Question, caption, QMessageBox::Yes, QMessageBox::No);
    checkEnded();
    return answer == QMessageBox::Yes;
}

bool ConfirmOk(const QString &text, Icon icon, const QString &caption)
{
    const auto answer = show(text, icon, caption, QMessageBox::Ok, QMessageBox::Cancel);
    checkEnded();
    return answer == QMessageBox::Ok;
}

QString InputBox(const QString &prompt, const QString &caption, const QString &defaultText)
{
    const QPointer<QInputDialog> dialog = newInputDialog(prompt, caption, defaultText);
    const bool accepted = runDialog(dialog.data()) == QDialog::Accepted;
    auto answer = accepted && dialog ? dialog->textValue() : QString();
    delete dialog;
    checkEnded();
    return answer;
}

} // namespace ui
