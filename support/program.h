#pragma once

#include "platform/runtime/value.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <vector>

class QWidget;

namespace ui
{
class Form;
}

namespace support
{

/// A program folder of its own for one test case: settings written, a real database file with the full schema, operator
/// 1 "ADMIN" (administrator, password "123456") logged in, the clock stopped at 15/05/2024 10:30:00, no waiting. Takes
/// everything back at its end: windows, databases, clock.
class Program
{
public:
    Program();
    ~Program();

    QString path(const QString &name = {}) const; ///< inside the folder

    /// Writes a setting as the program does: scrambled, but for the keys that stand in clear.
    void config(const QString &key, const QString &value, const QString &section = QStringLiteral("Config"));

    /// Runs a statement that must succeed.
    void sql(const QString &statement);

    /// The table of the origin book, which only some installations have.
    void originBook();

    /// All rows of a SELECT as texts: Null is "<Null>", numbers with a decimal point and no exponent, in the shortest
    /// text that reads back as the same value (a Single as the same 32 bits), dates as "dd/mm/yyyy hh:mm:ss", "True",
    /// "False".
    std::vector<QStringList> rows(const QString &select) const;

    /// One value of the first row, exactly as the field holds it.
    runtime::Value value(const QString &select) const;

    /// Rows that most cases need. Each gives the new code. A part under stock control gets its opening row in the
    /// ledger, of 0.
    qint32 customer(const QString &name, const QString &limit = {});
    qint32 vehicle(qint32 customer, const QString &plate, const QString &model = QStringLiteral("GOL 1.0"));
    qint32 part(const QString &name, const QString &kind, const QString &price, bool stock = false, int unit = 0);

private:
    QTemporaryDir folder_;
};

/// All digits of a 32-bit float: a comparison of floats lets the last ones pass.
inline QString exact(float value)
{
    return QString::number(double{value}, 'g', 9);
}

/// Loads and shows a window, active and ready for real events; fails the test where it does not exist.
ui::Form *show(const QString &form);

/// The named control of a window, of type T; fails the test where it does not exist.
QWidget *controlOf(QWidget *form, const QString &name);
template<class T>
T *control(QWidget *form, const QString &name)
{
    auto *found = qobject_cast<T *>(controlOf(form, name));
    Q_ASSERT_X(found, "support::control", qPrintable(name));
    return found;
}

/// Real events, sent to the window as the system does, so that an open modal box blocks them. `type` goes to the
/// control by the mouse, selects what it holds, types, and leaves by Tab; it fails the test where the focus does not
/// get there. In a date picker it types the digits; in a combo without typing it searches the entry. `key` takes the
/// focus there first.
void type(QWidget *form, const QString &control, const QString &text, bool leave = true);
void click(QWidget *form, const QString &button);
void key(QWidget *form, const QString &control, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// What the control shows.
QString text(QWidget *form, const QString &control);

} // namespace support

/// The main function of a test program with windows: one Application, the Brazilian translation, the drawn style.
#define TARVELO_TEST_MAIN(TestClass)                                                                                   \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        return support::runTest<TestClass>(argc, argv);                                                                \
    }

#include "support/testmain.h"
