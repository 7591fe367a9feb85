#include "tools/amostra/compras.h"

#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "stock/entrada.h"
#include "stock/notasentrada.h"
#include "tools/amostra/conteudo.h"
#include "tools/amostra/documentos.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using documents::LinhaItem;

namespace amostra
{

namespace
{

constexpr int ordensPorNota = 40;         ///< so many orders a month bring one note more to the shelves
constexpr int comFrete = 12;              ///< of a hundred notes
constexpr int pagasNaSemana = 30;         ///< of a hundred open notes
constexpr double menorPrazo = 3;          ///< days that a note stays open at least
constexpr double diasAntesDoSabado = 5;   ///< a note is paid on any day of the week that ends
constexpr int semanas = diasDeOrdens / 7; ///< the last of them brings notes, so that something is owed
constexpr quint64 notasPossiveis = 1'000'000;

std::vector<qint32> codigosDosFornecedores()
{
    std::vector<qint32> todos;
    auto linhas = core::DBDados->OpenRecordset(u"SELECT Codigo FROM Fornecedores ORDER BY Codigo"_s);
    for (; !linhas.Eof(); linhas.MoveNext()) {
        todos.push_back(runtime::CLng(linhas.value(u"Codigo")));
    }
    return todos;
}

struct NotaAberta {
    qint32 codigo;
    runtime::Date data;
};

/// All of them first: a note that is paid leaves the set.
std::vector<NotaAberta> notasAbertas()
{
    std::vector<NotaAberta> abertas;
    auto linhas =
        core::DBDados->OpenRecordset(u"SELECT Codigo, Data FROM NotasEntradas WHERE Pago = False ORDER BY Codigo"_s);
    for (; !linhas.Eof(); linhas.MoveNext()) {
        abertas.push_back({runtime::CLng(linhas.value(u"Codigo")), runtime::CDate(linhas.value(u"Data"))});
    }
    return abertas;
}

} // namespace

Compras::Compras(const Oficina &oficina, int ordens)
    : sorteio_(oficina.tamanho.semente, sobreNotas), notasPorMes_(1 + OrdensPorMes(ordens) / ordensPorNota),
      fornecedores_(codigosDosFornecedores())
{
    anota(oficina.pecasGerais);
    for (const std::vector<Item> &doModelo : oficina.pecasDoModelo) {
        anota(doModelo);
    }
}

void Compras::anota(const std::vector<Item> &itens)
{
    for (const Item &item : itens) {
        pecas_.push_back(&item);
        if (item.estoque) {
            comEstoque_.emplace(item.codigo, Saldo{&item, item.atual});
        }
    }
}

/// Suppliers' prices go up and down around what the part cost at first.
LinhaItem Compras::compra(const Item &item, double quantidade)
{
    if (const auto achado = comEstoque_.find(item.codigo); achado != comEstoque_.end()) {
        achado->second.estoque += quantidade;
    }
    return LinhaDoItem(item, u"P"_s, quantidade, item.custo * sorteio_.entre(94, 112) / 100);
}

void Compras::repoeEstoque(const std::vector<LinhaItem> &itens)
{
    std::vector<LinhaItem> linhas;
    for (const LinhaItem &vendida : itens) {
        const auto achado = comEstoque_.find(runtime::CLng(vendida.codigo));
        if (achado == comEstoque_.end()) {
            continue;
        }
        Saldo &saldo = achado->second;
        saldo.estoque -= runtime::CDbl(vendida.quantidade);
        if (saldo.estoque < saldo.item->minimo) {
            linhas.push_back(compra(*saldo.item, saldo.item->minimo * 2 + 6));
        }
    }
    if (!linhas.empty()) {
        recebe(linhas);
    }
}

/// Some of what a workshop always needs, and what it bought only when it was asked for.
void Compras::enchePrateleiras()
{
    for (int nota = 0; nota < notasPorMes_; ++nota) {
        std::vector<LinhaItem> linhas;
        for (int partes = sorteio_.entre(2, 6); partes > 0; --partes) {
            linhas.push_back(compra(*sorteio_.um(pecas_), sorteio_.entre(1, 6)));
        }
        if (sorteio_.chance(comFrete)) {
            linhas.push_back(LinhaDoItem({.nome = u"FRETE"_s}, u"A"_s, 1, sorteio_.entre(20, 90) * 100));
        }
        recebe(linhas);
    }
}

void Compras::recebe(const std::vector<LinhaItem> &linhas)
{
    const quint64 numero = sorteio_.abaixo(notasPossiveis);
    stock::IncluiNota({.codFornecedor = runtime::Format(sorteio_.um(fornecedores_), core::mascaraCodigo),
                       .observacoes = u"NF "_s + Digitos(numero, 6),
                       .valor = SomaDasLinhas(linhas),
                       .linhas = linhas});
    ++notas_;
}

/// On one of the days of this week.
void Compras::paga()
{
    const runtime::Date hoje = runtime::Today();
    for (const NotaAberta &nota : notasAbertas()) {
        const double aberta = hoje.serial - nota.data.serial;
        if (aberta < menorPrazo || !sorteio_.chance(pagasNaSemana)) {
            continue;
        }
        const int antes = sorteio_.entre(0, static_cast<int>(std::min(diasAntesDoSabado, aberta - 1)));
        stock::PagaNota(nota.codigo, runtime::Format(runtime::Date{hoje.serial - antes}, core::mascaraData));
    }
}

void Compras::daSemana()
{
    paga();
    ++semana_;
    if (PrimeiraSemanaDoMes() || semana_ == semanas) {
        enchePrateleiras();
    }
}

} // namespace amostra
