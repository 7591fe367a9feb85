#include "reports/relavisitas.h"

#include "core/modos.h"
#include "core/modulo.h"
#include "core/mostra.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"

#include <array>

namespace reports
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

QString comoVisitas(const dao::Recordset &linha, int lugar)
{
    return runtime::Format(linha.value(lugar), u"00");
}

constexpr std::array colunasDosClientes{
    ColunaLista{u"Código Cliente", 1500, u"Codigo", comoCodigo},
    ColunaLista{u"Nome Cliente", 5000, u"Nome", comoEsta},
    ColunaLista{u"Visitas", 1000, u"Visitas", comoVisitas, Qt::AlignRight},
    ColunaLista{u"Data Últ. Visita", 1600, u"UltimaVisita", comoData},
};
constexpr Lista clientes{.colunas = colunasDosClientes};

constexpr std::array colunasDosVeiculos{
    ColunaLista{u"Código Veículo", 1500, u"Codigo", comoCodigo},
    ColunaLista{u"Marca/Modelo", 3000, u"MarcaModelo", comoEsta},
    ColunaLista{u"Nome Cliente", 4000, u"Nome", comoEsta},
    ColunaLista{u"Visitas", 1000, u"Contador", comoVisitas, Qt::AlignRight},
    ColunaLista{u"Data Últ. Visita", 1600, u"UltimaVisita", comoData},
};
constexpr Lista veiculos{.colunas = colunasDosVeiculos};

const QString visitasDosClientes =
    u"SELECT Codigo, Nome, (Select Count(Codcliente) as Contador from OrdemServico where CodCliente = "
    "Clientes.Codigo) As Visitas, (SELECT max(DataIN) FROM OrdemServico WHERE CodCliente = Clientes.Codigo) As "
    "UltimaVisita FROM Clientes WHERE (Select Count(Codcliente) as Contador from OrdemServico where CodCliente = "
    "Clientes.Codigo) > 0 ORDER BY Nome"_s;

const QString visitasDosVeiculos =
    u"SELECT Codigo, MarcaModelo, (SELECT Nome FROM Clientes WHERE Codigo = Veiculos.CodCliente) AS Nome, (Select "
    "Count(CodVeiculo) as Contador from OrdemServico where CodVeiculo = Veiculos.Codigo) AS Contador, (SELECT "
    "max(DataIN) FROM OrdemServico WHERE CodVeiculo = Veiculos.Codigo) As UltimaVisita FROM Veiculos WHERE (Select "
    "Count(CodVeiculo) as Contador from OrdemServico where CodVeiculo = Veiculos.Codigo) > 0"_s;

/// Each row is worked out when it is read, so all are read once, in their order.
void enche(ui::ListView &lista, Andamento &obra, const QString &consulta, const Lista &descricao)
{
    dao::Recordset linhas = DBDados->OpenRecordset(consulta);
    if (linhas.Eof()) {
        lista.addItem({}, {u"Registro não Localizado"_s});
    }
    ParaCada(std::move(linhas), obra, [&](const dao::Recordset &linha) {
        QStringList textos;
        for (int lugar = 1; lugar < int(descricao.colunas.size()); ++lugar) {
            textos << descricao.colunas[std::size_t(lugar)].mostra(linha, lugar);
        }
        lista.addItem(comoCodigo(linha, 0), textos);
    });
}

void encheClientes(ui::ListView &lista, Andamento &obra)
{
    enche(lista, obra, visitasDosClientes, clientes);
}

void encheVeiculos(ui::ListView &lista, Andamento &obra)
{
    enche(lista, obra, visitasDosVeiculos, veiculos);
}

constexpr QStringView titulos =
    u"COD.CLI - MARCA/VEÍCULO        - NOME CLIENTE                         - VISITAS    - DATA U.LAN.";

constexpr std::array camposDosClientes{CampoDaLista{0}, CampoDaLista{semColuna}, CampoDaLista{1}, CampoDaLista{2},
                                       CampoDaLista{3}};
constexpr std::array linhasDosClientes{LinhaImpressa{titulos, camposDosClientes}};
constexpr Pagina paginaDosClientes{.titulo = u"VISITAS DE CLIENTES", .linhas = linhasDosClientes};

constexpr std::array camposDosVeiculos{CampoDaLista{0}, CampoDaLista{1}, CampoDaLista{2}, CampoDaLista{3},
                                       CampoDaLista{4}};
constexpr std::array linhasDosVeiculos{LinhaImpressa{titulos, camposDosVeiculos}};
constexpr Pagina paginaDosVeiculos{.titulo = u"VISITAS DE VEÍCULOS", .linhas = linhasDosVeiculos};

constexpr std::array relatorios{
    Relatorio{.modo = modoRelaVisitas,
              .titulo = u" - [Relatório de Visitas de Clientes]",
              .lista = clientes,
              .linhas = encheClientes,
              .pagina = unica<paginaDosClientes>},
    Relatorio{.modo = modoRelaVisitasVeiculos,
              .titulo = u" - [Ralatório de Visitas de Veículos]",
              .lista = veiculos,
              .linhas = encheVeiculos,
              .pagina = unica<paginaDosVeiculos>},
};

} // namespace

std::span<const Relatorio> relatoriosDeVisitas()
{
    return relatorios;
}

} // namespace reports
