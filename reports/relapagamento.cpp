#include "reports/relapagamento.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"

#include <array>

namespace reports
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

/// The order as the descriptions that its closing wrote name it.
QString ordem()
{
    return runtime::Format(CodigoConsulta, mascaraCodigo);
}

// --- closed in cheques

constexpr std::array colunasDosCheques{
    ColunaLista{u"Data", 1250, u"Data", comoData},
    ColunaLista{u"Banco", 2500, u"Banco", comoEsta},
    ColunaLista{u"Conta", 1700, u"Conta", comoEsta},
    ColunaLista{u"Cheque Nº", 1400, u"Numero", comoEsta},
    ColunaLista{u"Valor", 1300, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Vencimento", 1300, u"Vencimento", comoData},
    ColunaLista{u"Pago", 700, u"Pago", comoSimNao},
    ColunaLista{u"Observações", 3000, u"Observacoes", comoEsta},
};
constexpr std::array<QStringView, 2> nenhum{u"", u"Registro Não Localizado"};
constexpr Lista cheques{.colunas = colunasDosCheques, .vazia = nenhum};

QString chequesDaOrdem()
{
    return u"SELECT * FROM Cheques WHERE CodOs = "_s + QString::number(CodigoConsulta);
}

// --- on a payment book

constexpr std::array colunasDoCarne{
    ColunaLista{u"Data", 1250, u"Data", comoData},
    ColunaLista{u"Descrição", 4000, u"Descricao", comoEsta},
    ColunaLista{u"Valor", 1300, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Vencimento", 1300, u"Vencimento", comoData},
    ColunaLista{u"Pago", 700, u"Pago", comoSimNao},
    ColunaLista{u"Data Pagto.", 1300, u"DataPagto", comoData},
};
constexpr Lista carne{.colunas = colunasDoCarne, .vazia = nenhum};

QString carneDaOrdem()
{
    return u"SELECT * FROM ContasReceber WHERE DESCRICAO LIKE 'CARNÊ Nº "_s + ordem() + u"*'"_s;
}

// --- by a custom plan

constexpr std::array colunasDoPlano{
    ColunaLista{u"Parcela", 900},
    ColunaLista{u"Descrição", 4500},
    ColunaLista{.titulo = u"Valor", .largura = 1300, .alinhamento = Qt::AlignRight},
    ColunaLista{u"Vencimento", 1300},
    ColunaLista{u"Pago", 700},
    ColunaLista{u"Data Pagto.", 1300},
};
constexpr Lista plano{.colunas = colunasDoPlano};

QString coluna(const dao::Recordset &linha, QStringView nome, Mostra mostra)
{
    return mostra(linha, linha.fieldPlace(nome));
}

/// Every description of an instalment ends in its number.
QString parcela(const dao::Recordset &linha)
{
    constexpr int digitos = 2;
    return runtime::Right(coluna(linha, u"Descricao", comoEsta), digitos);
}

/// What was paid at once is in the cash box since that day.
QStringList linhaAVista(const dao::Recordset &caixa)
{
    const QString dia = coluna(caixa, u"Data", comoData);
    return {parcela(caixa), u"PAGAMENTO À VISTA"_s, coluna(caixa, u"Entrada", comoValor), dia, u"Sim"_s, dia};
}

QStringList linhaDaConta(const dao::Recordset &conta)
{
    return {parcela(conta),
            coluna(conta, u"Descricao", comoEsta),
            coluna(conta, u"Valor", comoValor),
            coluna(conta, u"Vencimento", comoData),
            coluna(conta, u"Pago", comoSimNao),
            coluna(conta, u"DataPagto", comoData)};
}

/// The customer's account knows no due date and no payment: those of the order's pending part stand for all.
QStringList linhaAPrazo(const dao::Recordset &conta)
{
    const auto pendencia = [](const QString &campo) {
        return LocalizaCampo(campo, u"Fiados"_s, u"CodOS = "_s + QString::number(CodigoConsulta));
    };
    return {parcela(conta),
            u"DINHEIRO À PRAZO"_s,
            coluna(conta, u"Entrada", comoValor),
            runtime::Format(pendencia(u"Vencimento"_s), mascaraData),
            pendencia(u"Pago"_s) == u"True"_s ? u"Sim"_s : u"Não"_s,
            {}};
}

/// A search by the descriptions, with the order's number in the middle of its text.
struct Busca {
    QStringView antes;
    QStringView depois;
    QStringList (*linha)(const dao::Recordset &);
};
constexpr std::array buscas{
    Busca{u"select * FROM Caixa WHERE Descricao Like 'O.S. ", u" PARCELA *'", linhaAVista},
    Busca{u"select * FROM ContasReceber WHERE Descricao Like 'CHEQUE CÓD */", u"-*'", linhaDaConta},
    Busca{u"select * FROM ContasReceber WHERE Descricao Like '*", u"-*'", linhaDaConta},
    Busca{u"select * FROM ContaFiado WHERE Descricao Like 'ORDEM SERVIÇO Nº ", u" PARCELA *'", linhaAPrazo},
};

void enchePlano(ui::ListView &lista, Andamento &obra)
{
    for (const Busca &busca : buscas) {
        ParaCada(DBDados->OpenRecordset(busca.antes.toString() + ordem() + busca.depois.toString()), obra,
                 [&](const dao::Recordset &linha) {
                     QStringList textos = busca.linha(linha);
                     const QString primeiro = textos.takeFirst();
                     lista.addItem(primeiro, textos);
                 });
    }
    if (lista.count() == 0) {
        lista.addItem({}, {u"Registro Não Localizado"_s});
    }
}

constexpr QStringView titulo = u" - [Consulta Forma de Pagto O.S. %1]";

constexpr std::array relatorios{
    Relatorio{
        .modo = modoRelaChequesDaOS, .titulo = titulo, .detalhe = ordem, .lista = cheques, .consulta = chequesDaOrdem},
    Relatorio{.modo = modoRelaCarneDaOS, .titulo = titulo, .detalhe = ordem, .lista = carne, .consulta = carneDaOrdem},
    Relatorio{.modo = modoRelaPlanoDaOS, .titulo = titulo, .detalhe = ordem, .lista = plano, .linhas = enchePlano},
};

} // namespace

std::span<const Relatorio> relatoriosDePagamento()
{
    return relatorios;
}

} // namespace reports
