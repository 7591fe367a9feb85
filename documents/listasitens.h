#pragma once

#include "documents/itens.h"
#include "documents/itensgravados.h"

#include <QTabWidget>

#include <optional>

namespace ui
{
class ListView;
}

namespace documents
{

/// Where a row stands.
struct PosicaoItem {
    Aba aba;
    int linha;
};

/// Which of the four lists a document shows: all, or those that a short print has room for (what is charged stands in
/// one, the material in another), or one alone.
enum class FormaListas { Completa, Compacta, UmaLista };

/// The compact layout holds for a `LayoutOS` of 2 or less.
FormaListas FormaDoLayout();

/// The item lists of a document, a page each: their columns, rows and sums. It shows and keeps; who holds it decides
/// what is written when. The lists are children by name, the first of them "Lista" where the layout file does not say
/// otherwise; pages of the window's own may follow them.
class ListasItens : public QTabWidget
{
    Q_OBJECT
    Q_PROPERTY(QString listaDePecas READ listaDePecas WRITE setListaDePecas)

public:
    explicit ListasItens(QWidget *parent = nullptr);

    QString listaDePecas() const;
    void setListaDePecas(const QString &nome);

    /// The columns, and the pages that this form hides. Once, when the window loads.
    void monta(FormaListas forma);

    /// All that is charged stands in one list. What is seen decides, not the setting, which may have changed since.
    bool compacto() const;

    /// The active list, or nothing where a page of the window's own is in front.
    std::optional<Aba> ativa() const;

    /// The row that is selected in the active list.
    std::optional<PosicaoItem> selecionado() const;

    ui::ListView &lista(Aba aba) const { return *listas_.at(aba); }

    /// Appends a row and scrolls to it. `chave` is that of the row in its table, "" for one that was never written.
    PosicaoItem acrescenta(Aba aba, const LinhaItem &linha, const QString &chave = {});

    /// Puts stored items into their lists.
    void mostra(const std::vector<ItemGravado> &itens);

    /// A row as it stands.
    LinhaItem linha(const PosicaoItem &posicao) const;
    QString chave(const PosicaoItem &posicao) const;
    void setChave(const PosicaoItem &posicao, const QString &chave);

    /// Writes an item over the row that it was read from; the row keeps its key.
    void escreve(const PosicaoItem &posicao, const LinhaItem &linha);
    void remove(const PosicaoItem &posicao);

    ItensPorAba itens() const;
    Totais totais() const { return SomaItens(itens(), compacto()); }

    void limpa();

private:
    ui::ListView *novaPagina(const QString &nome, const QString &titulo);

    std::array<ui::ListView *, abas.size()> listas_;
};

/// The item lists of another window, which is known by its name alone. A window that is not open is opened.
ListasItens &ListasDe(const QString &janela);

} // namespace documents
