#pragma once

#include "registers/cadastro.h"

namespace registers
{

/// A register that its table tells whole: the window is its layout `Controles`, a class made from a .ui file that holds
/// a `painelCadastro`. One with events of its own is a class of its own instead.
template<class Controles>
class CadastroSimples : public Cadastro
{
public:
    explicit CadastroSimples(const Registro &registro) : Cadastro(registro)
    {
        controles_.setupUi(this);
        ligaCadastro(*controles_.painelCadastro);
    }

private:
    Controles controles_;
};

} // namespace registers
