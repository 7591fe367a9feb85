#include "reports/reladevedores.h"

#include "core/devedores.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "core/razao.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"

#include <algorithm>
#include <array>
#include <vector>

namespace reports
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr int marcaConta = 1; ///< the small picture of a row that opens its customer's account

constexpr std::array colunas{
    ColunaLista{u"Código", 1100},
    ColunaLista{u"Nome Cliente", 5000},
    ColunaLista{.titulo = u"Saldo Devedor", .largura = 1500, .alinhamento = Qt::AlignRight},
    ColunaLista{u"Data Últ. Registro", 1700},
};
constexpr Lista devedores{.colunas = colunas};

/// The longest without a movement come first. A credit is listed too, and lowers the total.
void enche(ui::ListView &lista, Andamento &obra)
{
    std::vector<Devedor> achados = LeDevedores(ContasDosClientes(), obra);
    std::ranges::stable_sort(achados, {}, &Devedor::dia);
    float total = 0;
    for (const Devedor &devedor : achados) {
        total = SaldoDepois(total, devedor.saldo);
        ui::ListItem linha =
            lista.addItem(runtime::Format(devedor.codigo, mascaraCodigo),
                          {devedor.nome, runtime::Format(devedor.saldo, mascaraValor), devedor.data()});
        linha.setSmallIcon(marcaConta);
    }
    if (!achados.empty()) {
        lista.addItem({}, {u"TOTAL"_s, runtime::Format(total, mascaraValor)});
    } else if (!obra.deixado()) {
        lista.addItem({}, {u"Registro não Localizado"_s});
    }
}

constexpr std::array camposImpressos{CampoDaLista{0}, CampoDaLista{1}, CampoDaLista{2, Lado::Direita}, CampoDaLista{3}};
constexpr std::array linhasImpressas{
    LinhaImpressa{u"COD.CLI - NOME CLIENTE                                                 - SALDO DEV. - DATA U.LAN",
                  camposImpressos}};
constexpr Pagina pagina{.titulo = u"LISTA DE DEVEDORES", .linhas = linhasImpressas};

constexpr std::array relatorios{Relatorio{
    .modo = modoRelaDevedores,
    .titulo = u" - [Lista de Devedores]",
    .lista = devedores,
    .linhas = enche,
    .pagina = unica<pagina>,
    .abertura = Abertura{u"frmMoviFiadosConta", modoRelaDevedores},
}};

} // namespace

std::span<const Relatorio> relatoriosDeDevedores()
{
    return relatorios;
}

} // namespace reports
