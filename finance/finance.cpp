#include "finance/finance.h"

#include "finance/frmBalanco.h"
#include "finance/frmMoviCaixa.h"
#include "finance/frmMoviCheques.h"
#include "finance/frmMoviContasPR.h"
#include "finance/frmMoviContasPRBaixa.h"
#include "finance/frmMoviFiados.h"
#include "finance/frmMoviFiadosConta.h"
#include "finance/frmMoviLivroOrigem.h"

#include "core/devolucao.h"

namespace finance
{

using namespace Qt::StringLiterals;

void registerForms()
{
    core::RegistraJanela(u"frmBalanco"_s, [] { return new frmBalanco; });
    core::RegistraJanela(u"frmMoviCaixa"_s, [] { return new frmMoviCaixa; });
    core::RegistraJanela(u"frmMoviCheques"_s, [] { return new frmMoviCheques; });
    core::RegistraJanela(
        u"frmMoviContasPR"_s, [] { return new frmMoviContasPR; }, frmMoviContasPR::devolucoes());
    core::RegistraJanela(u"frmMoviContasPRBaixa"_s, [] { return new frmMoviContasPRBaixa; });
    core::RegistraJanela(u"frmMoviFiados"_s, [] { return new frmMoviFiados; });
    core::RegistraJanela(u"frmMoviFiadosConta"_s, [] { return new frmMoviFiadosConta; });
    core::RegistraJanela(u"frmMoviLivroOrigem"_s, [] { return new frmMoviLivroOrigem; });
}

} // namespace finance
