#include "finance/finance.h"

#include "finance/frmMoviCaixa.h"

#include "core/devolucao.h"

namespace finance
{

using namespace Qt::StringLiterals;

void registerForms()
{
    core::RegistraJanela(u"frmMoviCaixa"_s, [] { return new frmMoviCaixa; });
}

} // namespace finance
