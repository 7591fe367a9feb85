#include "workorders/workorders.h"

#include "workorders/frmNota.h"
#include "workorders/frmOSAbre.h"
#include "workorders/frmOSAltera.h"
#include "workorders/frmOSConsulta.h"
#include "workorders/frmOSFormaPagto.h"

#include "core/devolucao.h"

namespace workorders
{

using namespace Qt::StringLiterals;

void registerForms()
{
    core::RegistraJanela(
        u"frmOSAbre"_s, [] { return new frmOSAbre; }, frmOSAbre::devolucoes());
    core::RegistraJanela(u"frmOSAltera"_s, [] { return new frmOSAltera; });
    core::RegistraJanela(
        u"frmOSConsulta"_s, [] { return new frmOSConsulta; }, frmOSConsulta::devolucoes());
    core::RegistraJanela(
        u"frmOSFormaPagto"_s, [] { return new frmOSFormaPagto; }, frmOSFormaPagto::devolucoes());
    core::RegistraJanela(u"frmNota"_s, [] { return new frmNota; });
}

} // namespace workorders
