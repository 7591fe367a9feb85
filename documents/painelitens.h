#pragma once

#include "documents/entradaitem.h"
#include "documents/itens.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace Ui
{
class PainelItens;
}

namespace documents
{

/// Where a row stands.
struct PosicaoItem {
    Aba aba;
    int linha;
};

/// What the windows that list items have in common: the entry row, the four lists in their tabs and the running totals.
/// It shows and keeps; the window that holds it decides what is written when (`JanelaItens` brings the events).
class PainelItens : public QWidget
{
    Q_OBJECT

public:
    explicit PainelItens(QWidget *parent = nullptr);
    ~PainelItens() override;

    /// The columns, the layout that `LayoutOS` names and the stored descriptions. Once, when the window loads.
    void monta();

    /// The compact layout keeps all that is charged in `Lista`: the tabs of services and of outsourced services are
    /// hidden.
    bool compacto() const;

    /// The active tab of the item lists, or nothing where a window has another page in front.
    std::optional<Aba> abaAtiva() const;

    /// The row that is selected in the list on the active tab.
    std::optional<PosicaoItem> selecionado() const;

    /// Checks the entry row and moves it to the list that it belongs to. Nothing is added where a check fails or the
    /// register names no kind.
    std::optional<PosicaoItem> acrescenta();

    /// Removes a row and adds up again.
    void remove(const PosicaoItem &posicao);

    /// Edits a row through five input boxes and adds up again.
    void edita(const PosicaoItem &posicao);

    /// The job values that a workshop without a register of services asks for one by one: each numeric answer fills the
    /// entry row and runs `adiciona`.
    void pedeValores(const std::function<void()> &adiciona);

    /// Shows or hides the button that asks for them.
    void ofereceTrabalhos(bool sim);

    /// `RecalculaTotais`: all four totals from the lists.
    void recalcula();
    void zeraTotais();

    /// Empties a list, or all; the totals are left to the caller.
    void limpa(Aba aba);
    void limpaListas();

    /// The rows as they go to the table, each under its PSA code. The compact layout writes `Lista` alone.
    std::vector<LinhaItem> itensParaGravar() const;

    /// The order's total, as it is shown.
    QString total() const;

    ui::ListView &lista(Aba aba) const;
    EntradaItem &entrada() { return entrada_; }
    const Ui::PainelItens &controles() const { return *ui_; }

private:
    void ligaRemocao();
    void habilitaRemocao();
    std::optional<Aba> destino() const;
    void mostraTotais(const Totais &totais);

    std::unique_ptr<Ui::PainelItens> ui_;
    EntradaItem entrada_;
};

} // namespace documents
