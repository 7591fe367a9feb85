#pragma once

#include "documents/itens.h"
#include "tools/amostra/oficina.h"
#include "tools/amostra/sorteio.h"

#include <unordered_map>
#include <vector>

namespace amostra
{

/// What the workshop buys: suppliers' notes, received into the stock and paid some days later. They have draws of their
/// own, so that the orders of a seed are the same without them.
class Compras
{
public:
    Compras(const Oficina &oficina, int ordens);

    /// Buys what this sale took below its minimum.
    void repoeEstoque(const std::vector<documents::LinhaItem> &itens);

    /// The end of a week: notes are paid, and once a month the shelves are filled.
    void daSemana();

    int notas() const { return notas_; }

private:
    /// Told along with the sales: the ledger is asked only when a part is bought.
    struct Saldo {
        const Item *item = nullptr;
        double estoque = 0;
    };

    void anota(const std::vector<Item> &itens);
    documents::LinhaItem compra(const Item &item, double quantidade);
    void enchePrateleiras();
    void recebe(const std::vector<documents::LinhaItem> &linhas);
    void paga();

    Sorteio sorteio_;
    int notasPorMes_;
    std::vector<qint32> fornecedores_;
    std::vector<const Item *> pecas_; ///< all of them, in the order of their registration
    std::unordered_map<qint32, Saldo> comEstoque_;
    int semana_ = 0;
    int notas_ = 0;
};

} // namespace amostra
