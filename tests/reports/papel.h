#pragma once

#include "platform/printer/printer.h"
#include "reports/folhavista.h"
#include "support/cadastro.h"
#include "support/program.h"

#include <QStringList>

#include <vector>

/// The report window and its paper as a test sees them.
namespace papel
{

using namespace Qt::StringLiterals;

inline ui::Form *abre(int modo)
{
    return cadastro::open(u"frmRelatorio"_s, modo);
}

/// The report that a selection window has opened.
inline ui::Form *relatorio()
{
    return ui::Forms::instance().find(u"frmRelatorio"_s);
}

inline QStringList semBrancas(QStringList linhas)
{
    linhas.removeAll(QString());
    return linhas;
}

/// The lines of the document that went to the printer last, sheet by sheet, without blank ones.
inline std::vector<QStringList> impresso()
{
    std::vector<QStringList> folhas;
    for (const printer::Page &folha : printer::printer().lastDocument()) {
        folhas.push_back(semBrancas(folha.lines()));
    }
    return folhas;
}

/// The same of the preview window.
inline std::vector<QStringList> previsto()
{
    ui::Form *previa = ui::Forms::instance().find(u"frmRelaPreVisualiza"_s);
    std::vector<QStringList> folhas;
    while (auto *pic = previa->findChild<reports::FolhaVista *>(u"pic_%1"_s.arg(folhas.size() + 1))) {
        folhas.push_back(semBrancas(pic->pagina().lines()));
    }
    return folhas;
}

/// Double-clicks a row of the report by the keyboard.
inline void clicaDuasVezes(ui::Form *form, int linha)
{
    cadastro::list(form)->selectRow(linha);
    support::key(form, u"Lista"_s, Qt::Key_Return);
}

} // namespace papel
