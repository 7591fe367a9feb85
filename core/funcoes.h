#pragma once

#include "platform/printer/surface.h"
#include "platform/runtime/value.h"

#include <QString>

namespace core
{

/// The masks of the whole system.
inline constexpr auto mascaraValor = u"###,##0.00";
inline constexpr auto mascaraData = u"dd/mm/yyyy";
inline constexpr auto mascaraDataHora = u"dd/mm/yyyy hh:mm:ss";
inline constexpr auto mascaraCodigo = u"0000";

// --- formatos.cpp

/// A date literal for a statement, always month first: 1 "#d#", 3 one whole day, 4 a range, 5 a range of whole days,
/// the last three to follow BETWEEN. Any other mode gives "".
QString DataSQL(const runtime::Value &data1, int modo, const runtime::Value &data2 = {});

/// The present day as the windows write it, "dd/mm/yyyy".
QString Hoje();

/// A quantity by its unit code: three decimals where it has a fraction to three places, else "00" for the units
/// counted in pieces (0, 3, 4) and "##,##0.000" for those measured (1, 2). Any other code gives "".
QString FormataQuantidade(double valor, int codigoUM);

/// The unit's name: UNIDADE, QUILOS, LITROS, GALÃO, PACOTE; "" for any other code.
QString NomeDaUnidade(int codigoUM);

/// The share of a value by way of text: "00.000" without its comma, behind "0,". 100 % and more act by their digits,
/// 100 as 0.1.
QString Percentual(double valor, double percentual);

/// CDbl(label) + CDbl(cell) as "###,##0.00": how every running total of the lists is kept.
QString SomaTexto(const QString &total, const QString &parcela);

// --- extenso.cpp

/// The value in words, for receipts; with `moeda` in reais and centavos. "" for Null, what is no number, 0 or less,
/// above 9999999.99.
QString ValorPorExtenso(const runtime::Value &valor, bool moeda);

// --- documentos.cpp

/// Checks a CPF (11 digits, two check digits modulo 11, Receita Federal). Punctuation does not count.
/// Returns "CPF Válido", "CPF Inválido" or "É Necessário um CPF com 11 Dígitos".
QString ValidaCPF(const QString &texto);

/// Checks a CNPJ (14 digits, two check digits modulo 11, Receita Federal). Returns "CNPJ válido", "CNPJ inválido",
/// "CNPJ Inválido" for fourteen zeros, or "É obrigatório o CNPJ com 14 dígitos".
QString ValidaCNPJ(const QString &texto);

/// Takes the punctuation off, or puts it on 11 digits (CPF) or 14 (CNPJ). "" gives Null, another length Empty.
runtime::Value FormataDocumento(const QString &texto, bool tirar);

// --- textos.cpp

QString AlinhaEsquerda(const QString &texto, int largura); ///< padded behind, or cut
QString AlinhaDireita(const QString &texto, int largura);  ///< padded in front, or cut to its first characters
QString CentraTexto(const QString &texto, int largura); ///< padded alternately in front and behind, beginning in front

/// The lines of a word-wrapped text, broken as `ImprimeQuebrado` prints it.
QStringList QuebraTexto(const QString &texto, int largura);

/// Prints word-wrapped. A piece of `largura` characters without a blank is broken hard at the width.
void ImprimeQuebrado(const QString &texto, int largura, printer::Surface &saida);

// --- janelas.cpp: it beeps, so it comes with the windows

/// KeyPress filter: digits and Backspace pass, with `comDecimais` also "," and "."; anything else beeps and gives 0.
QChar SoDigitos(QChar tecla, bool comDecimais);

/// The two filters as a control takes them.
inline QChar SoInteiros(QChar tecla)
{
    return SoDigitos(tecla, false);
}
inline QChar SoDecimais(QChar tecla)
{
    return SoDigitos(tecla, true);
}

} // namespace core
