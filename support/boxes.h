#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <deque>
#include <functional>

class QDialog;
class QInputDialog;

namespace support
{

/// Answers the boxes of the program by a queue of expected ones: text, icon and answer. A box that is not expected, or
/// differs, fails the test and is closed with Esc; so does an expected one that never comes. One object a test case;
/// its end checks that the queue is empty.
class Boxes : public QObject
{
    Q_OBJECT

public:
    Boxes();
    ~Boxes() override;

    Boxes &exclamation(const QString &text); ///< OK
    Boxes &information(const QString &text); ///< OK
    Boxes &critical(const QString &text);    ///< OK
    Boxes &question(const QString &text, bool yes);
    Boxes &okCancel(const QString &text, QMessageBox::Icon icon, bool ok);
    Boxes &input(const QString &prompt, const QString &answer);       ///< types over what stands there
    Boxes &inputKeep(const QString &prompt, const QString &expected); ///< checks what stands there and accepts it
    Boxes &inputCancel(const QString &prompt);

    /// The title that every box must carry from here on; "" for any.
    Boxes &title(const QString &text);

    /// Where failures go: the running test, unless told otherwise. For the test of this class itself.
    void reportTo(std::function<void(const QString &)> report) { report_ = std::move(report); }

    /// A check that is made while each box is up, whoever answers it: "", or what is wrong. The program folder of a
    /// test (`Program`) sets one: another program must be able to write the database then.
    static void whileUp(std::function<QString()> check);

    /// Fails the test where that check finds something; for what is up besides boxes.
    static void checkWhileUp(const QString &what);

    /// Checks that every expected box came.
    void finish();

private:
    struct Expected {
        bool isInput = false;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QString text{};
        QMessageBox::StandardButton answer = QMessageBox::Ok;
        QString typed{};
        bool keep = false;
        bool cancel = false;
    };

    void look();
    void answerMessage(QMessageBox &box);
    void answerInput(QInputDialog &dialog);
    bool check(const QDialog &dialog, const Expected &expected, bool isInput, const QString &text,
               QMessageBox::Icon icon) const;
    Boxes &message(QMessageBox::Icon icon, const QString &text, QMessageBox::StandardButton answer);
    Boxes &add(const Expected &expected);
    static QString describe(const Expected &expected);

    std::deque<Expected> queue_;
    std::function<void(const QString &)> report_;
    QString title_;
    QTimer timer_;
    QPointer<QDialog> answered_;
};

} // namespace support
