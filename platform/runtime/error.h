#pragma once

#include <QString>
#include <QStringList>

#include <exception>

namespace runtime
{

/// The run-time error of the program: the platform's number and a text in Portuguese that tells the
/// user what is wrong. Nothing in the data layer shows a box; windows catch it, or the program ends with it.
class RuntimeError : public std::exception
{
public:
    explicit RuntimeError(int number);
    RuntimeError(int number, QString description);

    int number() const { return number_; }
    const QString &description() const { return description_; }
    const char *what() const noexcept override { return utf8_.constData(); }

private:
    int number_;
    QString description_;
    QByteArray utf8_;
};

/// Which words an error has, where what happened tells more than its number.
enum class Wording { Usual, UnknownName, EmptyStatement, UnknownCommand, UnknownFieldType, GenuineJet };

/// The standing text of an error number; "" for a number without one. `arguments` fill %1, %2 of the text.
QString errorText(int number, const QStringList &arguments = {}, Wording wording = Wording::Usual);

/// Raises `number` with its standing text.
[[noreturn]] void raise(int number, const QStringList &arguments = {}, Wording wording = Wording::Usual);

} // namespace runtime
