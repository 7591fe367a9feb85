#pragma once

#include <QStringView>

#include <span>

/// What a workshop deals in: models, parts, services, and the texts that its staff use again and again.
namespace amostra
{

struct Modelo {
    QStringView nome;
    int primeiroAno;
    int ultimoAno;
    bool diesel = false;
};
std::span<const Modelo> modelos();

/// A part or a service of the catalogue. `um` is the unit's code, the cost in cents.
struct ItemCatalogo {
    QStringView nome;
    int um;
    int custo;
};

std::span<const ItemCatalogo> pecasDeModelo(); ///< one for each model
std::span<const ItemCatalogo> pecasGerais();   ///< one for all
std::span<const ItemCatalogo> servicos();      ///< the cost is the labour

inline constexpr QStringView todosOsModelos = u"TODOS OS MODELOS";

std::span<const QStringView> avulsos(); ///< one-off items, registered nowhere
std::span<const QStringView> cores();
std::span<const QStringView> queixas();
std::span<const QStringView> mecanicos();
std::span<const QStringView> bancos();
std::span<const QStringView> fabricantes(); ///< what an external code begins with
std::span<const QStringView> ramosDeFornecedor();

/// A bill of every month. `porOrdem` adds so many cents for each order of a month.
struct DespesaMensal {
    QStringView descricao;
    int valor; ///< in cents
    int porOrdem;
};
std::span<const DespesaMensal> despesas();

} // namespace amostra
