#include "reports/pecasvendidas.h"

#include "core/banco.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

#include <optional>
#include <unordered_map>

namespace reports
{

using namespace Qt::StringLiterals;
using core::DBDados;
using runtime::Value;

namespace
{

constexpr int erroTabelaAusente = 3376;

/// A line of an order; `lugar` is where its part or service stands among what was sold, as soon as it does.
struct LinhaDaOrdem {
    ItemVendido item;
    std::optional<std::size_t> lugar = {};
    std::size_t numero = 0; ///< in the order of storage
};

float quanto(const Value &valor)
{
    return runtime::IsNull(valor) ? 0 : runtime::CSng(valor);
}

ItemVendido itemDe(const dao::Recordset &linha)
{
    const Value codPeca = linha.value(u"CodPeca");
    return {.codPeca = runtime::IsNull(codPeca) ? 0 : runtime::CLng(codPeca),
            .descricao = core::NuloParaVazio(linha.value(u"Descricao")),
            .quantidade = quanto(linha.value(u"Quantidade")),
            .unit = quanto(linha.value(u"ValorUnit")),
            .total = quanto(linha.value(u"Total"))};
}

/// What was sold so far, in the order in which it came up first.
class Vendas
{
public:
    void soma(LinhaDaOrdem &linha)
    {
        if (!linha.lugar) {
            const auto [achado, novo] = lugares_.try_emplace(linha.item.codPeca, itens_.size());
            linha.lugar = achado->second;
            if (novo) {
                itens_.push_back(linha.item);
                return;
            }
        }
        ItemVendido &item = itens_[*linha.lugar];
        item.quantidade = core::SaldoDepois(item.quantidade, linha.item.quantidade);
        item.total = core::SaldoDepois(item.total, linha.item.total);
    }

    const std::vector<ItemVendido> &itens() const { return itens_; }

private:
    std::vector<ItemVendido> itens_;
    std::unordered_map<qint32, std::size_t> lugares_;
};

std::vector<qint32> ordensDe(const QString &periodo)
{
    std::vector<qint32> ordens;
    auto ordem = DBDados->OpenRecordset(u"select codigo FROM OrdemServico WHERE DataIN BETWEEN "_s + periodo);
    for (; !ordem.Eof(); ordem.MoveNext()) {
        ordens.push_back(runtime::CLng(ordem.value(0)));
    }
    return ordens;
}

QString linhasDaOrdem(qint32 ordem, QStringView psa)
{
    return u"SELECT CodPeca, descricao, quantidade, ValorUnit, ValorUnit * Quantidade as Total FROM OsPecas WHERE "
           "CodOS = %1 AND PSA = '%2'"_s.arg(ordem)
               .arg(psa);
}

void somaOrdens(const std::vector<qint32> &ordens, QStringView psa, Vendas &vendas, core::Andamento &obra)
{
    for (const qint32 ordem : ordens) {
        if (obra.deixado()) {
            return;
        }
        for (auto linha = DBDados->OpenRecordset(linhasDaOrdem(ordem, psa)); !linha.Eof(); linha.MoveNext()) {
            LinhaDaOrdem lida{itemDe(linha)};
            vendas.soma(lida);
        }
        obra.avanca();
    }
}

/// What the condition " AND PSA = 'P' OR PSA = 'S'" finds for one order after the other: the parts of that order and
/// every service there is, in the order of storage. Asking the database would read all lines for every order.
class LinhasDeTodos
{
public:
    LinhasDeTodos(const std::vector<qint32> &ordens, core::Andamento &obra);

    void soma(qint32 ordem, Vendas &vendas);

private:
    std::vector<LinhaDaOrdem> servicos_;
    std::unordered_map<qint32, std::vector<LinhaDaOrdem>> pecas_; ///< by order
};

LinhasDeTodos::LinhasDeTodos(const std::vector<qint32> &ordens, core::Andamento &obra)
{
    for (const qint32 ordem : ordens) {
        pecas_.try_emplace(ordem);
    }
    auto linha = DBDados->OpenRecordset(
        u"SELECT CodPeca, descricao, quantidade, ValorUnit, ValorUnit * Quantidade as Total, CodOS, PSA = 'S' AS "
        "Servico FROM OsPecas WHERE PSA = 'P' OR PSA = 'S'"_s);
    for (std::size_t numero = 0; !linha.Eof() && !obra.deixado(); linha.MoveNext(), ++numero) {
        obra.avanca();
        if (core::Verdadeiro(linha.value(u"Servico"))) {
            servicos_.push_back({.item = itemDe(linha), .numero = numero});
            continue;
        }
        const Value codOs = linha.value(u"CodOS");
        const auto ordem = runtime::IsNull(codOs) ? pecas_.end() : pecas_.find(runtime::CLng(codOs));
        if (ordem != pecas_.end()) {
            ordem->second.push_back({.item = itemDe(linha), .numero = numero});
        }
    }
}

void LinhasDeTodos::soma(qint32 ordem, Vendas &vendas)
{
    auto &pecas = pecas_.at(ordem);
    auto peca = pecas.begin();
    for (LinhaDaOrdem &servico : servicos_) {
        for (; peca != pecas.end() && peca->numero < servico.numero; ++peca) {
            vendas.soma(*peca);
        }
        vendas.soma(servico);
    }
    for (; peca != pecas.end(); ++peca) {
        vendas.soma(*peca);
    }
}

void somaTodos(const std::vector<qint32> &ordens, Vendas &vendas, core::Andamento &obra)
{
    LinhasDeTodos linhas(ordens, obra);
    for (const qint32 ordem : ordens) {
        if (obra.deixado()) {
            return;
        }
        linhas.soma(ordem, vendas);
        obra.avanca();
    }
}

void derrubaTabela()
{
    try {
        DBDados->Execute(u"drop table relapecas"_s);
    } catch (const runtime::RuntimeError &erro) {
        if (erro.number() != erroTabelaAusente) {
            throw;
        }
    }
}

/// The scratch table, for the time of a report. One that stands there already was left by a program that was killed.
class TabelaDeTrabalho
{
public:
    explicit TabelaDeTrabalho(const core::AvisoCritico &aviso)
    {
        derrubaTabela();
        QString campos = u"CodPeca.Long,Descricao.Text;200,Quantidade.single,Unit.single,Total.single"_s;
        core::CriaTabela(u"RelaPecas"_s, campos, aviso);
    }

    ~TabelaDeTrabalho()
    {
        try {
            derrubaTabela();
        } catch (const runtime::RuntimeError &) { // NOLINT(bugprone-empty-catch): the next report takes it away
        }
    }

    TabelaDeTrabalho(const TabelaDeTrabalho &) = delete;
    TabelaDeTrabalho &operator=(const TabelaDeTrabalho &) = delete;
};

/// A description that the scratch table can't hold whole is cut.
void grava(const std::vector<ItemVendido> &itens)
{
    dao::Recordset linhas = DBDados->OpenRecordset(u"RelaPecas"_s);
    const int maior = linhas.field(linhas.fieldPlace(u"Descricao")).size;
    for (const ItemVendido &item : itens) {
        linhas.AddNew();
        linhas[u"CodPeca"] = item.codPeca;
        linhas[u"Descricao"] = core::ValorOuNulo(item.descricao.left(maior));
        linhas[u"Quantidade"] = item.quantidade;
        linhas[u"Unit"] = item.unit;
        linhas[u"Total"] = item.total;
        linhas.Update();
    }
}

std::vector<ItemVendido> leOrdenados()
{
    std::vector<ItemVendido> itens;
    auto linha = DBDados->OpenRecordset(u"select * from relapecas order by quantidade desc"_s);
    for (; !linha.Eof(); linha.MoveNext()) {
        itens.push_back({.codPeca = runtime::CLng(linha.value(u"CodPeca")),
                         .descricao = core::NuloParaVazio(linha.value(u"Descricao")),
                         .quantidade = runtime::CSng(linha.value(u"Quantidade")),
                         .unit = runtime::CSng(linha.value(u"Unit")),
                         .total = runtime::CSng(linha.value(u"Total"))});
    }
    return itens;
}

} // namespace

std::vector<ItemVendido> ItensVendidos(const QString &periodo, ItensContados quais, core::Andamento &obra,
                                       const core::AvisoCritico &aviso)
{
    Vendas vendas;
    const std::vector<qint32> ordens = ordensDe(periodo);
    if (quais == ItensContados::Todos) {
        somaTodos(ordens, vendas, obra);
    } else {
        somaOrdens(ordens, quais == ItensContados::Pecas ? u"P" : u"S", vendas, obra);
    }
    // Only now, as the file is locked for others from the first write to the end of the unit.
    const dao::Unit umaVez;
    const TabelaDeTrabalho tabela(aviso);
    grava(vendas.itens());
    return leOrdenados();
}

} // namespace reports
