#include "reports/reladevedores.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"

#include <algorithm>
#include <array>
#include <optional>
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

/// A customer's last row of his account.
struct Conta {
    qint32 codCliente = 0;
    float saldo = 0;
    runtime::Value data = {};
};

float saldoDe(const runtime::Value &valor)
{
    return runtime::IsNull(valor) ? 0 : runtime::CSng(valor);
}

/// The accounts that are not even, each by its last row. The customer at which the reading was left is not among them:
/// his last row was not read.
std::vector<Conta> contasEmAberto(Andamento &obra)
{
    std::vector<Conta> abertas;
    std::optional<Conta> conta;
    const auto termina = [&] {
        if (conta && conta->saldo != 0) {
            abertas.push_back(*conta);
        }
    };
    dao::Recordset linhas = DBDados->OpenRecordset(u"SELECT * FROM ContaFiado ORDER BY CodCliente, Codigo"_s);
    const int codCliente = linhas.fieldPlace(u"CodCliente");
    const int saldo = linhas.fieldPlace(u"Saldo");
    const int data = linhas.fieldPlace(u"Data");
    ParaCada(std::move(linhas), obra, [&](const dao::Recordset &linha) {
        const runtime::Value codigo = linha.value(codCliente);
        const qint32 dono = runtime::IsNull(codigo) ? 0 : runtime::CLng(codigo);
        if (conta && conta->codCliente != dono) {
            termina();
        }
        conta = Conta{dono, saldoDe(linha.value(saldo)), linha.value(data)};
    });
    if (!obra.deixado()) {
        termina();
    }
    return abertas;
}

/// Year, month and day run together, so that the order of the texts is that of the days.
QString diaParaOrdem(const Conta &conta)
{
    return runtime::Format(conta.data, u"yyyymmdd");
}

QString nomeDoCliente(qint32 codigo)
{
    dao::Recordset cliente =
        DBDados->OpenRecordset(u"SELECT Nome FROM Clientes WHERE Codigo = "_s + QString::number(codigo));
    return cliente.Eof() ? u"REGISTRO NÃO LOCALIZADO"_s : NuloParaVazio(cliente.value(0));
}

/// The longest without a movement come first. A credit is listed too, and lowers the total.
void enche(ui::ListView &lista, Andamento &obra)
{
    std::vector<Conta> contas = contasEmAberto(obra);
    std::ranges::stable_sort(contas, {}, diaParaOrdem);
    float total = 0;
    for (const Conta &conta : contas) {
        total = SaldoDepois(total, conta.saldo);
        ui::ListItem linha = lista.addItem(runtime::Format(conta.codCliente, mascaraCodigo),
                                           {nomeDoCliente(conta.codCliente), runtime::Format(conta.saldo, mascaraValor),
                                            runtime::Format(conta.data, mascaraData)});
        linha.setSmallIcon(marcaConta);
    }
    if (contas.empty()) {
        lista.addItem({}, {u"Registro não Localizado"_s});
        return;
    }
    lista.addItem({}, {u"TOTAL"_s, runtime::Format(total, mascaraValor)});
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
