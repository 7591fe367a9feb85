#include "reports/reports.h"

#include "reports/frmRelaPreVisualiza.h"

#include "platform/ui/forms.h"

namespace reports
{

using namespace Qt::StringLiterals;

void registerForms()
{
    ui::Forms::instance().add(u"frmRelaPreVisualiza"_s, [] { return new frmRelaPreVisualiza; });
}

} // namespace reports
