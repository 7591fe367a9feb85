#pragma once

#include "support/boxes.h"
#include "support/program.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

namespace ui
{
class Form;
class ListView;
} // namespace ui

/// What the cases of the payment window share: a program with the open order 0001 of 100,00 (two pieces of a part that
/// keeps stock, customer 1 "MARIA" with a limit of 500,00), shown in the query and closed from there.
namespace pagto
{

extern const QString query;
extern const QString payment;
extern const QString today;
extern const QString printQuestion;
extern const QStringList captions; ///< of the buttons that close, by their form

/// The payment window, or nullptr.
ui::Form *form();

QString shown(const QString &name);
void enter(const QString &name, const QString &what);
void press(const QString &button);
void goTo(int tab);
ui::ListView *list(int index);

/// The rows of a list, each as one text with its cells between bars.
QStringList rowsOf(int index);

class Case : public QObject
{
    Q_OBJECT

protected:
    void open();
    void finish();

    /// Shows the order in the query, opens the payment window on it and runs `action` there; what is left open is
    /// unloaded.
    void inPayment(const std::function<void()> &action);

    /// Closes with the form of `tab`. `asked` expects the boxes between the question and the printing. Both windows are
    /// gone afterwards, and no order is printed.
    void close(
        int tab, const std::function<void()> &fill, const std::function<void()> &asked = [] {});

    /// Tries to close: the box comes, nothing is written and the window stays.
    void refuse(int tab, const QString &message, const std::function<void()> &fill);

    /// The rows of a table, each as one text with its values between bars; dates without time show none.
    QStringList table(const QString &name) const;
    QString order() const;
    bool nothingWritten() const;
    int documents() const;

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
};

} // namespace pagto
