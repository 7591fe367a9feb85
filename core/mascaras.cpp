#include "core/funcoes.h"
#include "core/janelas.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"

#include <QLineEdit>
#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

/// The masks: the marks of dates, phones, model years and postal codes, and money.
namespace core
{

namespace
{

/// A mask, '#' for what the user puts in. The marks of a phone or a postal code only adorn it, and stand where the mask
/// has them. Those of a date part numbers from each other: one that stands early ends a shorter number and stays.
struct Molde {
    TipoMascara tipo;
    QStringView molde;
    bool separa;
};

constexpr std::array<Molde, 4> moldes{{
    {TipoMascara::Data, u"##/##/####", true},
    {TipoMascara::Fone, u"(##) ####-####", false},
    {TipoMascara::Ano, u"####/####", true},
    {TipoMascara::CEP, u"##.###-###", false},
}};

/// What is put in front or behind when the text reaches a length.
struct Marca {
    TipoMascara tipo;
    qsizetype tamanho;
    QStringView frente;
    QStringView atras;
};

constexpr std::array<Marca, 8> marcas{{
    {TipoMascara::Data, 2, u"", u"/"},
    {TipoMascara::Data, 5, u"", u"/"},
    {TipoMascara::Fone, 1, u"(", u""},
    {TipoMascara::Fone, 3, u"", u") "},
    {TipoMascara::Fone, 9, u"", u"-"},
    {TipoMascara::Ano, 4, u"", u"/"},
    {TipoMascara::CEP, 2, u"", u"."},
    {TipoMascara::CEP, 6, u"", u"-"},
}};

constexpr QChar barra = u'/'; ///< of the masks that part numbers

const Molde &moldeDe(TipoMascara tipo)
{
    return *std::ranges::find(moldes, tipo, &Molde::tipo);
}

bool ehMarca(const Molde &molde, QChar letra)
{
    return letra != u'#' && molde.molde.contains(letra);
}

/// Characters and marks as the mask has them, a full group with the marks behind it.
QString adornado(const Molde &molde, const QString &texto)
{
    QString livres = texto;
    livres.removeIf([&](QChar letra) { return ehMarca(molde, letra); });
    QString inteiro;
    qsizetype usadas = 0;
    for (const QChar lugar : molde.molde) {
        if (lugar != u'#') {
            inteiro += lugar;
        } else if (usadas < livres.size()) {
            inteiro += livres.at(usadas++);
        } else {
            break;
        }
    }
    return usadas == 0 ? QString() : QString(inteiro + livres.mid(usadas));
}

/// The text with a bar where a number would grow beyond its group. Where no bar is missing the rest of the number goes
/// on into the next group, and the bar between the two moves.
QString separado(const Molde &molde, const QString &texto)
{
    const auto grupos = molde.molde.split(barra);
    qsizetype faltam = grupos.size() - 1 - texto.count(barra);
    qsizetype sobram = 0;
    qsizetype grupo = 0;
    qsizetype largura = 0;
    QString inteiro;
    const auto cheio = [&] { return grupo < grupos.size() - 1 && largura == grupos[grupo].size(); };
    const auto fecha = [&] {
        inteiro += barra;
        ++grupo;
        largura = 0;
    };
    for (const QChar letra : texto) {
        if (letra == barra) {
            sobram > 0 ? static_cast<void>(--sobram) : fecha();
            continue;
        }
        if (cheio()) {
            fecha();
            faltam > 0 ? --faltam : ++sobram;
        }
        inteiro += letra;
        ++largura;
    }
    // What the mask did not have to mend is left to the rule of the typed text.
    if (inteiro != texto && cheio()) {
        fecha();
    }
    return inteiro;
}

QString comMarcas(const Molde &molde, const QString &texto)
{
    return molde.separa ? separado(molde, texto) : adornado(molde, texto);
}

qsizetype livresEm(const Molde &molde, QStringView texto)
{
    return std::ranges::count_if(texto, [&](QChar letra) { return !ehMarca(molde, letra); });
}

/// The place behind so many of the user's characters; behind the last one it is the end.
qsizetype lugarDepoisDe(const Molde &molde, const QString &texto, qsizetype livres)
{
    qsizetype lugar = 0;
    while (lugar < texto.size() && livresEm(molde, QStringView(texto).left(lugar)) < livres) {
        ++lugar;
    }
    return livresEm(molde, QStringView(texto).mid(lugar)) == 0 ? texto.size() : lugar;
}

bool soDigitos(const Molde &molde, QStringView texto)
{
    return std::ranges::all_of(texto, [&](QChar letra) { return letra.isDigit() || ehMarca(molde, letra); });
}

/// Puts in the marks that a deletion or a paste has left out; the caret stays behind the same character. A text with
/// letters in it is no such number.
bool remenda(QLineEdit &controle, const Molde &molde)
{
    QString texto = controle.text();
    qsizetype cursor = controle.cursorPosition();
    if (!soDigitos(molde, texto)) {
        return false;
    }
    // The mask has put the bar in already: typed too, it is not doubled.
    if (molde.separa && cursor > 1 && ehMarca(molde, texto[cursor - 1]) && texto[cursor - 2] == texto[cursor - 1]) {
        texto.remove(--cursor, 1);
    }
    QString inteiro = comMarcas(molde, texto);
    // What finds no room is what came last, never what stood there.
    while (inteiro.size() > controle.maxLength() && cursor > 0) {
        texto.remove(--cursor, 1);
        inteiro = comMarcas(molde, texto);
    }
    if (inteiro == controle.text()) {
        return false;
    }
    const qsizetype antesDoCursor = livresEm(molde, QStringView(texto).left(cursor));
    controle.setText(inteiro);
    controle.setCursorPosition(static_cast<int>(lugarDepoisDe(molde, inteiro, antesDoCursor)));
    return true;
}

/// A mark more may stand at the end: a deletion in front of one has not left it there, nor has the user typed them all.
bool cabeMarca(const Molde &molde, const QString &texto)
{
    const auto marcasEm = [&](QStringView onde) { return onde.size() - livresEm(molde, onde); };
    const auto todas = molde.molde.size() - molde.molde.count(u'#');
    return !ehMarca(molde, texto.back()) && marcasEm(texto) < todas;
}

/// What the program writes is shorter by a deletion where it is what stood in front of the old text, or where the user
/// is at work in its middle.
bool apagou(const QLineEdit &controle, const QString &antes)
{
    const QString agora = controle.text();
    const bool noMeio = controle.cursorPosition() < agora.size();
    return agora.size() < antes.size() && (noMeio || antes.startsWith(agora));
}

void poeMarcas(QLineEdit &controle, TipoMascara tipo)
{
    const QString antes = controle.property(propTextoAnterior).toString();
    const QString agora = controle.text();
    const Molde &molde = moldeDe(tipo);
    controle.setProperty(propTextoAnterior, agora);
    if (ui::userInserts(&controle) ? remenda(controle, molde) : apagou(controle, antes)) {
        return;
    }
    for (const Marca &marca : marcas) {
        if (marca.tipo == tipo && marca.tamanho == agora.size() && cabeMarca(molde, agora)) {
            controle.setText(marca.frente + agora + marca.atras); // leaves the caret at the end
            return;
        }
    }
}

void formataValor(QLineEdit &controle)
{
    if (runtime::IsNumeric(controle.text())) {
        controle.setText(runtime::Format(controle.text(), mascaraValor));
    }
}

} // namespace

void MascaraTexto(QLineEdit *controle, TipoMascara tipo)
{
    if (tipo == TipoMascara::Valor) {
        formataValor(*controle);
    } else {
        poeMarcas(*controle, tipo);
    }
}

void AnotaTexto(QWidget *controle)
{
    controle->setProperty(propTextoAnterior, ui::textOf(controle));
}

QString DataColada(const QString &texto)
{
    static const QRegularExpression data(u"^\\s*(\\d{1,2})[/.-](\\d{1,2})[/.-](\\d{2,4})\\s*$"_s);
    const auto achada = data.match(texto);
    if (!achada.hasMatch()) {
        return texto;
    }
    return achada.captured(1).rightJustified(2, u'0') + u'/' + achada.captured(2).rightJustified(2, u'0') + u'/' +
           achada.captured(3);
}

} // namespace core
