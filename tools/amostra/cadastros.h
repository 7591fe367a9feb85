#pragma once

#include "tools/amostra/oficina.h"

/// The registers of the sample, each row through the code of its window.
namespace amostra
{

void IncluiOperadores();
void IncluiListas(); ///< the completion lists

int IncluiFornecedores(const Oficina &oficina);

/// Parts and services with their opening stock.
void IncluiItens(Oficina &oficina, Resumo &resumo);

/// Customers and their vehicles; every fourth customer has two.
void IncluiClientes(Oficina &oficina, Resumo &resumo, const Progresso &progresso);

} // namespace amostra
