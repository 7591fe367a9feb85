#include "estimates/estimates.h"

#include "estimates/frmOSOrcaAltera.h"
#include "estimates/frmOSOrcaConsulta.h"
#include "estimates/frmOSOrcaNovo.h"

#include "core/devolucao.h"

namespace estimates
{

using namespace Qt::StringLiterals;

void registerForms()
{
    core::RegistraJanela(u"frmOSOrcaAltera"_s, [] { return new frmOSOrcaAltera; });
    core::RegistraJanela(u"frmOSOrcaNovo"_s, [] { return new frmOSOrcaNovo; });
    core::RegistraJanela(
        u"frmOSOrcaConsulta"_s, [] { return new frmOSOrcaConsulta; }, frmOSOrcaConsulta::devolucoes());
}

} // namespace estimates
