#include "estimates/paineis.h"

#include "core/modulo.h"
#include "documents/painelitens.h"
#include "platform/ui/boxes.h"

namespace estimates
{

using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

Orcamento OrcamentoDosPaineis(const CabecalhoOrcamento &cabecalho, const PainelItens &itens)
{
    const ListasItens &listas = itens.listas();
    Orcamento orcamento = cabecalho.campos();
    orcamento.valor = itens.total();
    orcamento.itens = ParaGravar(listas.itens(), listas.compacto());
    return orcamento;
}

bool PodeImprimir(const CabecalhoOrcamento &cabecalho, const PainelItens &itens)
{
    if (!cabecalho.confereMarca(u"Marca Inválida"_s)) {
        return false;
    }
    if (itens.listas().itens().at(abaPecas).empty()) {
        ui::MsgBox(u"Lista de Peças/Serviços Vazia"_s, ui::Icon::Exclamation, NomeEmpresa);
        cabecalho.focaCliente();
        return false;
    }
    return true;
}

} // namespace estimates
