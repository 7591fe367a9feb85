#include "reports/reports.h"

#include "ui_frmRelaSelecaoCheques.h"
#include "ui_frmRelaSelecaoContasPR.h"
#include "ui_frmRelaSelecaoOS.h"
#include "ui_frmRelaSelecaoPecas.h"

#include "reports/catalogo.h"
#include "reports/frmRelaPreVisualiza.h"
#include "reports/frmRelaSelecaoNotasEntradas.h"
#include "reports/frmRelatorio.h"
#include "reports/relacheques.h"
#include "reports/relacontas.h"
#include "reports/relaordens.h"
#include "reports/relavendidas.h"

#include "core/devolucao.h"

namespace reports
{

using namespace Qt::StringLiterals;

namespace
{

template<class Controles>
void registraSelecao(const Selecao &selecao)
{
    core::RegistraJanela(selecao.janela.toString(), [&selecao] { return new SelecaoSimples<Controles>(selecao); });
}

} // namespace

void registerForms()
{
    core::RegistraJanela(u"frmRelaPreVisualiza"_s, [] { return new frmRelaPreVisualiza; });
    core::RegistraJanela(u"frmRelatorio"_s, [] { return new frmRelatorio(Catalogo()); });
    core::RegistraJanela(u"frmRelaSelecaoNotasEntradas"_s, [] { return new frmRelaSelecaoNotasEntradas; });
    registraSelecao<Ui::frmRelaSelecaoCheques>(selecaoDeCheques);
    registraSelecao<Ui::frmRelaSelecaoPecas>(selecaoDePecas);
    registraSelecao<Ui::frmRelaSelecaoContasPR>(selecaoDeContas);
    registraSelecao<Ui::frmRelaSelecaoOS>(selecaoDeOrdens);
}

} // namespace reports
