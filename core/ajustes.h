#pragma once

#include <QString>
#include <QStringView>

namespace core
{

/// What the answer to a setting's question has to be. Any other answer is passed over, or refused where the setting has
/// words for it.
enum class Resposta { Texto, SimNao, Numero };

/// A setting that a menu command asks for: its key in the section Config, the question, what is shown as it stands,
/// what is stored, what follows.
struct Ajuste {
    QStringView item; ///< the menu command
    QStringView chave;
    QStringView pergunta; ///< of a yes or no up to "Digite:"
    Resposta resposta = Resposta::Texto;
    QStringView recusa = {};                       ///< what an answer that is no number gets
    QString (*mostrado)() = nullptr;               ///< where it is not the key's value
    QString (*gravado)(const QString &) = nullptr; ///< the value of an answer; none: the answer
    bool (*grava)(const QString &) = nullptr;      ///< writes instead; false where nothing is to be confirmed
    void (*depois)(const QString &) = nullptr;     ///< follows the write, ahead of its confirmation
};

/// Asks for the setting and writes it. An empty answer, which Cancel gives too, changes nothing.
void PerguntaAjuste(const Ajuste &ajuste);

/// True for a number that the program can work with: a text like "1e999" reads as one, and has no value.
bool NumeroValido(const QString &texto);

/// A percentage as the settings hold it: "0," and the number of two digits, "02" for 2 %.
QString TaxaGravada(const QString &resposta);

} // namespace core
