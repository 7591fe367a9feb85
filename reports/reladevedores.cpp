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

QString nomeDoCliente(qint32 codigo)
{
    dao::Recordset cliente =
        DBDados->OpenRecordset(u"SELECT Nome FROM Clientes WHERE Codigo = "_s + QString::number(codigo));
    return cliente.Eof() ? u"REGISTRO NÃO LOCALIZADO"_s : NuloParaVazio(cliente.value(0));
}

/// One whose account is not even.
struct Devedor {
    qint32 codigo;
    QString nome;
    float saldo;
    QString dia; ///< year, month and day run together, so that the order of the texts is that of the days
};

/// Those whose last row is not even. The customer at which the reading was left is not among them: his last row was not
/// read. The names are looked up on the way, as a statement of its own each behind it would lock the file anew.
std::vector<Devedor> leDevedores(Andamento &obra)
{
    std::vector<Devedor> achados;
    std::optional<Conta> conta;
    const auto termina = [&] {
        if (conta && conta->saldo != 0) {
            achados.push_back({conta->codCliente, nomeDoCliente(conta->codCliente), conta->saldo,
                               runtime::Format(conta->data, u"yyyymmdd")});
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
    return achados;
}

QString comoData(const QString &dia)
{
    return dia.isEmpty() ? dia : dia.mid(6) + u'/' + dia.mid(4, 2) + u'/' + dia.left(4);
}

/// The longest without a movement come first. A credit is listed too, and lowers the total.
void enche(ui::ListView &lista, Andamento &obra)
{
    std::vector<Devedor> achados = leDevedores(obra);
    std::ranges::stable_sort(achados, {}, &Devedor::dia);
    float total = 0;
    for (const Devedor &devedor : achados) {
        total = SaldoDepois(total, devedor.saldo);
        ui::ListItem linha =
            lista.addItem(runtime::Format(devedor.codigo, mascaraCodigo),
                          {devedor.nome, runtime::Format(devedor.saldo, mascaraValor), comoData(devedor.dia)});
        linha.setSmallIcon(marcaConta);
    }
    if (achados.empty()) {
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
