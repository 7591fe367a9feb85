#include "stock/consultanotas.h"

#include "core/funcoes.h"
#include "core/informacoes.h"
#include "core/lista.h"
#include "core/modulo.h"
#include "documents/itensgravados.h"
#include "platform/ui/boxes.h"
#include "platform/ui/listview.h"

#include <array>

namespace stock
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array colunas{
    ColunaLista{u"Código", 800, u"CodPeca"},
    ColunaLista{u"Tipo", 600, u"PSA"},
    ColunaLista{u"Quantidade", 900, u"Quantidade", nullptr, Qt::AlignRight},
    ColunaLista{u"Descrição", 4600, u"Descricao"},
    ColunaLista{u"V. Unit.", 1300, u"ValorUnit", nullptr, Qt::AlignRight},
    ColunaLista{u"V. Total", 1300, u"", nullptr, Qt::AlignRight},
};

} // namespace

void MontaLinhasDaNota(ui::ListView &lista)
{
    MontaLista(lista, {.colunas = colunas});
}

void MostraLinhasDaNota(ui::ListView &lista, const QString &codigo)
{
    const auto nota = CodigoDoTexto(codigo);
    if (!nota) {
        return;
    }
    lista.clear();
    const QString consulta = u"SELECT * FROM NotasPecas WHERE CodNota = "_s + QString::number(*nota);
    for (const documents::ItemGravado &item : documents::LeItens(consulta)) {
        const documents::LinhaItem &linha = item.linha;
        lista.addItem(linha.codigo, {linha.tipo, linha.quantidade, linha.descricao, linha.valorUnit, linha.valorTotal});
    }
}

QString PerguntaDiaDoPagamento()
{
    return ui::InputBox(u"Digite a Data do Pagamento"_s, NomeEmpresa, Hoje());
}

} // namespace stock
