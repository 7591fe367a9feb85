#include "registers/registers.h"

#include "registers/frmCadaCliente.h"
#include "registers/frmCadaFast.h"
#include "registers/frmCadaFornecedor.h"
#include "registers/frmCadaPecas.h"
#include "registers/frmCadaVeiculos.h"

#include "platform/ui/forms.h"

namespace registers
{

using namespace Qt::StringLiterals;

void registerForms()
{
    auto &janelas = ui::Forms::instance();
    janelas.add(u"frmCadaCliente"_s, [] { return new frmCadaCliente; });
    janelas.add(u"frmCadaFast"_s, [] { return new frmCadaFast; });
    janelas.add(u"frmCadaFornecedor"_s, [] { return new frmCadaFornecedor; });
    janelas.add(u"frmCadaPecas"_s, [] { return new frmCadaPecas; });
    janelas.add(u"frmCadaVeiculos"_s, [] { return new frmCadaVeiculos; });
}

} // namespace registers
