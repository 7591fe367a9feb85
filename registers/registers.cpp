#include "registers/registers.h"

#include "registers/frmCadaFast.h"

#include "platform/ui/forms.h"

namespace registers
{

using namespace Qt::StringLiterals;

void registerForms()
{
    ui::Forms::instance().add(u"frmCadaFast"_s, [] { return new frmCadaFast; });
}

} // namespace registers
