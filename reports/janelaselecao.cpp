#include "reports/janelaselecao.h"

#include "core/modulo.h"

#include <QAbstractButton>

namespace reports
{

using namespace Qt::StringLiterals;

JanelaSelecao::JanelaSelecao(const Selecao &selecao) : ui::Form(selecao.janela.toString()), selecao_(selecao) {}

void JanelaSelecao::liga(QAbstractButton *btnPreenche, QAbstractButton *btnVoltar)
{
    onClick(btnPreenche, &JanelaSelecao::btnPreenche_Click);
    onClick(btnVoltar, &JanelaSelecao::btnVoltar_Click);
}

void JanelaSelecao::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(core::captionOf(selecao_.titulo.toString()));
    core::AbrePeriodo(*this, selecao_.periodo);
}

void JanelaSelecao::btnPreenche_Click()
{
    core::ModoChamada = selecao_.modo;
    ui::Forms::instance().ShowAfresh(u"frmRelatorio"_s);
}

void JanelaSelecao::btnVoltar_Click()
{
    Unload();
}

} // namespace reports
