#pragma once

#include <QString>

namespace walk
{

/// The box in which the program tells that it ends by an error: number, text, and the window it came up over.
struct ErrorBox {
    int number = 0;
    QString description{};
    QString window{};
};

/// Reads the text of a critical box; the number is 0 where it does not tell a run-time error.
ErrorBox readErrorBox(const QString &text, const QString &window);

/// Why the program is right to end by this error; empty where nothing calls for it.
QString reasonOf(const ErrorBox &box);

} // namespace walk
