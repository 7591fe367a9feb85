#include "registers/registers.h"

#include "registers/frmCadaCliente.h"
#include "registers/frmCadaFast.h"
#include "registers/frmCadaFornecedor.h"
#include "registers/frmCadaPecas.h"
#include "registers/frmCadaVeiculos.h"

namespace registers
{

using namespace Qt::StringLiterals;

void registerForms()
{
    RegistraCadastro(registroClientes(), [] { return new frmCadaCliente; });
    RegistraCadastro(registroFornecedores(), [] { return new frmCadaFornecedor; });
    RegistraCadastro(registroPecas(), [] { return new frmCadaPecas; });
    RegistraCadastro(registroVeiculos(), [] { return new frmCadaVeiculos; });
    core::RegistraJanela(
        u"frmCadaFast"_s, [] { return new frmCadaFast; }, frmCadaFast::devolucoes());
}

} // namespace registers
