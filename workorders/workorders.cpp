#include "workorders/workorders.h"

#include "workorders/frmOSAbre.h"
#include "workorders/frmOSConsulta.h"
#include "workorders/frmOSFormaPagto.h"

#include "platform/ui/forms.h"

namespace workorders
{

using namespace Qt::StringLiterals;

void registerForms()
{
    auto &forms = ui::Forms::instance();
    forms.add(u"frmOSAbre"_s, [] { return new frmOSAbre; });
    forms.add(u"frmOSConsulta"_s, [] { return new frmOSConsulta; });
    forms.add(u"frmOSFormaPagto"_s, [] { return new frmOSFormaPagto; });
}

} // namespace workorders
