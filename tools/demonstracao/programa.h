#pragma once

#include <QSize>
#include <QString>

#include <functional>

/// The program's run: its folder, start, login and end.
namespace demonstracao
{

/// Makes a folder the program's own, with what an installation ships.
void install(const QString &folder);

/// Goes on with the program folder that an earlier run has left.
void useFolder(const QString &folder);

/// The size that the main window gets from here on, 1024x768 unless told.
void setScreen(QSize size);

struct Operador {
    QString code;
    QString name;
    QString password;
};

/// What becomes of the notices that a start may open.
enum class Avisos { Fecham, Ficam };

/// Starts the program and logs in; the main window then has the size of the screen told above. `before` runs in front
/// of the login, with its window open.
void start(const Operador &who, const std::function<void()> &before = {}, Avisos avisos = Avisos::Fecham);

void stop();

/// The operator that the new installation is given.
Operador primeiroOperador();

/// The administrator of the sample workshop.
Operador operadorDaOficina();

} // namespace demonstracao
