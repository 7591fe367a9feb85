#include "reports/reports.h"

#include "reports/frmRelaPreVisualiza.h"

#include "core/devolucao.h"

namespace reports
{

using namespace Qt::StringLiterals;

void registerForms()
{
    core::RegistraJanela(u"frmRelaPreVisualiza"_s, [] { return new frmRelaPreVisualiza; });
}

} // namespace reports
