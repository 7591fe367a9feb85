#pragma once

class QLineEdit;

namespace ui
{
class Form;
}

namespace core
{

/// What leaving a date box does with its text.
enum class SaidaDaData {
    Deixa,
    Formata,      ///< whatever can be read as a date is written as "dd/mm/yyyy", a bare number too
    FormataDatas, ///< the same for dates alone
};

struct RegrasDaData {
    int mesesDoF1 = 0;     ///< F1 puts in the date so many months from today
    bool soDigitos = true; ///< other keys do nothing; without it only the bar, which the mask puts in
    SaidaDaData saida = SaidaDaData::Deixa;
};

/// Makes a text box a date box: mask, keys, paste, F1 and what leaving does. The bars that a user types are not
/// doubled, and one behind a single digit makes two of it: "1/2/2024" is the first of February.
void LigaData(ui::Form &janela, QLineEdit *caixa, const RegrasDaData &regras = {});

} // namespace core
