#include "reports/catalogo.h"

#include "reports/relaaniversarios.h"
#include "reports/relacheques.h"
#include "reports/relacontas.h"
#include "reports/reladevedores.h"
#include "reports/relanotas.h"
#include "reports/relaordens.h"
#include "reports/relapagamento.h"
#include "reports/relapecas.h"
#include "reports/relavendidas.h"
#include "reports/relavisitas.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace reports
{

namespace
{

constexpr std::array assuntos{
    relatoriosDeNotas,  relatoriosDePagamento, relatoriosDePecas,   relatoriosDeVendidas, relatoriosDeOrdens,
    relatoriosDeContas, relatoriosDeDevedores, relatoriosDeCheques, relatoriosDeVisitas,  relatoriosDeAniversarios,
};

} // namespace

std::span<const Relatorio> Catalogo()
{
    static const std::vector<Relatorio> todos = [] {
        std::vector<Relatorio> reunidos;
        for (const auto assunto : assuntos) {
            const auto relatorios = assunto();
            std::ranges::copy(relatorios, std::back_inserter(reunidos));
        }
        return reunidos;
    }();
    return todos;
}

} // namespace reports
