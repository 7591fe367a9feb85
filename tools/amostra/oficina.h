#pragma once

#include "platform/runtime/value.h"
#include "tools/amostra/amostra.h"

#include <vector>

namespace amostra
{

/// What each stage draws from.
enum Assunto : quint64 {
    sobreItens = 1,
    sobreFornecedores,
    sobreClientes,
    sobreVeiculos,
    sobreOrdens,
    sobreConteudo,
    sobrePagamento,
    sobreAcertos,
    sobreDespesas,
    sobreOrcamentos,
    sobreNotas,
    sobreOrigens
};

struct Item {
    qint32 codigo = 0;
    QString nome;
    int um = 0;
    int preco = 0;        ///< in cents
    int custo = 0;        ///< the same, as it was registered; 0 for a service
    double atual = 0;     ///< the opening stock
    double minimo = 0;    ///< the minimum stock
    bool estoque = false; ///< under stock control
};

struct Veiculo {
    qint32 codigo = 0;
    qint32 codCliente = 0;
    int modelo = 0; ///< its place in the table of models
};

/// The registers of the sample as its orders need them.
struct Oficina {
    Tamanho tamanho;
    runtime::Date hoje; ///< the first day that the sample does not reach
    std::vector<Item> servicos;
    std::vector<Item> pecasGerais;
    std::vector<std::vector<Item>> pecasDoModelo; ///< by the place of the model
    std::vector<Veiculo> veiculos;                ///< in the order of their registration
    std::vector<int> veiculosAteODia;             ///< by days before `hoje`: how many were registered by then
};

inline constexpr int diasDeOrdens = 728; ///< 104 weeks
inline constexpr int mesesDeOrdens = 24;
inline constexpr int diasDeCadastro = 2190; ///< customers came in evenly over six years

/// How many of all orders come in a month, at least one: the size of the business.
int OrdensPorMes(int ordens);

/// True in the first seven days of a month: what is done once a month is done on their Saturday.
bool PrimeiraSemanaDoMes();

/// The window's own text of an amount in cents.
QString Reais(qint64 centavos);

} // namespace amostra
