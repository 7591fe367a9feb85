#include "core/lista.h"

#include "core/andamento.h"
#include "core/funcoes.h"
#include "core/informacoes.h"
#include "platform/dao/snapshot.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"
#include "platform/ui/rowsource.h"
#include "platform/ui/wait.h"

#include <QComboBox>
#include <QItemSelectionModel>

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

/// A column as the rows of one statement bring it.
struct Celula {
    MostraDaJanela mostra;
    int lugar;
};

std::vector<Celula> celulasDe(const dao::Recordset &linhas, const Lista &descricao, const MostraDaJanela &daJanela)
{
    std::vector<Celula> celulas;
    for (const ColunaLista &coluna : descricao.colunas) {
        const int lugar = coluna.coluna.isEmpty() ? -1 : linhas.fieldPlace(coluna.coluna);
        celulas.push_back({coluna.mostra != nullptr ? MostraDaJanela(coluna.mostra) : daJanela, lugar});
    }
    return celulas;
}

/// The rows of a statement, read and formatted when the list asks for them.
class LinhasDaConsulta : public ui::RowSource
{
public:
    /// Shows the first `lidas` rows.
    LinhasDaConsulta(dao::Recordset linhas, const Lista &descricao, const MostraDaJanela &daJanela, int lidas)
        : celulas_(celulasDe(linhas, descricao, daJanela)), icone_(descricao.icone), tag_(descricao.tag),
          linhas_(std::move(linhas)), total_(std::min(lidas, linhas_.count()))
    {
    }

    int count() const override { return total_; }
    bool hasIcons() const override { return icone_ != nullptr; }

    std::optional<ui::SourceRow> row(int row) override
    {
        ui::SourceRow lida;
        const bool existe = linhas_.read(row, [&](const dao::Recordset &linha) {
            for (const Celula &celula : celulas_) {
                lida.texts.append(celula.mostra(linha, celula.lugar));
            }
            lida.smallIcon = icone_ != nullptr ? icone_(linha) : 0;
            lida.tag = tag_ != nullptr ? tag_(linha) : QString();
        });
        return existe ? std::optional(lida) : std::nullopt;
    }

    void column(int column, const TakeText &take) override
    {
        const Celula &celula = celulas_.at(static_cast<std::size_t>(column));
        linhas_.readAll([&](int lugar, const dao::Recordset &linha) {
            if (lugar < total_) {
                take(lugar, celula.mostra(linha, celula.lugar));
            }
        });
    }

private:
    std::vector<Celula> celulas_;
    int (*icone_)(const dao::Recordset &);
    QString (*tag_)(const dao::Recordset &);
    dao::Snapshot linhas_;
    int total_;
};

/// A single-precision addition, as the amounts are kept.
void soma(float &total, const runtime::Value &valor)
{
    if (!runtime::IsNull(valor)) {
        total = runtime::CSng(double{total} + double{runtime::CSng(valor)});
    }
}

/// The sums over the rows, and how many were read.
struct Leitura {
    Somas somas;
    int lidas = std::numeric_limits<int>::max();
};

Leitura somaLinhas(dao::Recordset &linhas, std::span<const Soma> somas, Andamento &obra)
{
    if (somas.empty()) {
        return {};
    }
    Leitura leitura{Somas(somas.size()), 0};
    for (; !linhas.Eof() && !obra.deixado(); linhas.MoveNext()) {
        for (std::size_t i = 0; i < somas.size(); ++i) {
            if (somas[i].conta == nullptr || somas[i].conta(linhas)) {
                soma(leitura.somas[i], linhas.value(somas[i].coluna));
            }
        }
        ++leitura.lidas;
        obra.avanca();
    }
    return leitura;
}

void acrescentaVazia(ui::ListView &lista, std::span<const QStringView> vazia)
{
    QStringList textos;
    std::ranges::transform(vazia, std::back_inserter(textos), &QStringView::toString);
    if (!textos.isEmpty()) {
        const QString primeiro = textos.takeFirst();
        lista.addItem(primeiro, textos);
    }
}

void seleciona(ui::ListView *lista, int linha, bool selecionar)
{
    if (selecionar) {
        lista->selectRow(linha);
        return;
    }
    lista->selectionModel()->select(lista->model()->index(linha, 0),
                                    QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
}

} // namespace

void MontaLista(ui::ListView &lista, const Lista &descricao)
{
    for (const ColunaLista &coluna : descricao.colunas) {
        lista.addColumn(coluna.titulo.toString(), coluna.largura, coluna.alinhamento);
    }
}

Somas EncheLista(ui::ListView &lista, dao::Recordset linhas, const Lista &descricao, const MostraDaJanela &daJanela,
                 Andamento *obra)
{
    const ui::Hourglass ampulheta;
    lista.clear();
    if (linhas.Eof()) {
        acrescentaVazia(lista, descricao.vazia);
        return Somas(descricao.somas.size());
    }
    Andamento somando(u"Somando"_s, [] { return 0; });
    Leitura leitura = somaLinhas(linhas, descricao.somas, obra != nullptr ? *obra : somando);
    lista.setRows(std::make_unique<LinhasDaConsulta>(std::move(linhas), descricao, daJanela, leitura.lidas));
    return leitura.somas;
}

bool LocalizaLista(ui::ListView *lista, const QString &texto, int coluna, bool selecionar, bool parar)
{
    if (texto.isEmpty()) {
        return true;
    }
    const QString procurado = runtime::UCase(texto);
    const auto linhas = lista->rowsWhere(
        coluna - 1, [&](const QString &celula) { return runtime::UCase(celula.left(texto.size())) == procurado; });
    for (const int linha : linhas) {
        seleciona(lista, linha, selecionar);
        if (parar) {
            lista->ensureVisible(linha);
            break;
        }
    }
    return !linhas.empty();
}

void MontaPesquisas(QComboBox &combo, std::span<const Pesquisa> pesquisas)
{
    for (const Pesquisa &pesquisa : pesquisas) {
        if (!pesquisa.item.isEmpty()) {
            combo.addItem(pesquisa.item.toString());
        }
    }
}

QString Condicao(const Pesquisa &pesquisa, const QString &procurado)
{
    constexpr int umDia = 1;
    constexpr int diaInteiro = 3;
    switch (pesquisa.comparacao) {
    case Comparacao::Contem:
        return pesquisa.condicao + procurado + u"*'"_s;
    case Comparacao::Data:
        return pesquisa.condicao + DataSQL(procurado, umDia);
    case Comparacao::Dia:
        return pesquisa.condicao + DataSQL(procurado, diaInteiro);
    case Comparacao::Codigo:
        return pesquisa.condicao + QString::number(CodigoDoTexto(procurado).value_or(0));
    case Comparacao::Igual:
        break;
    }
    return pesquisa.condicao + procurado;
}

} // namespace core
