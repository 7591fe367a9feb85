#pragma once

#include "documents/entradaitem.h"
#include "documents/listasitens.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Ui
{
class PainelItens;
}

namespace documents
{

/// How a window uses its item panel. What is not told is that of a window that keeps its items in the lists until they
/// are confirmed; one that writes each item at once says what follows a change. By then the lists and the totals stand.
struct UsoDoPainel {
    std::vector<Aba> abasComTeclas{abaPecas}; ///< where Delete removes and Insert edits the selected row
    bool removeMaterial = false;
    bool limpaLista = true; ///< btnLimpa empties a list and deletes nothing, so it is not for items that are written
    std::function<void(const PosicaoItem &)> acrescentado;
    std::function<void(const QString &chave)> removido;
    std::function<void(const PosicaoItem &)> editado;
};

/// What the windows that build up items have in common: the entry row, the item lists and the running totals, with
/// their events.
class PainelItens : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString botoesDaDescricao READ botoesDaDescricao WRITE setBotoesDaDescricao)

public:
    explicit PainelItens(QWidget *parent = nullptr);
    ~PainelItens() override;

    /// What the names of the buttons that keep the list of descriptions begin with. Where a header keeps a list of
    /// vehicles by buttons of the same names, the layout file gives other ones.
    QString botoesDaDescricao() const;
    void setBotoesDaDescricao(const QString &inicio);

    /// Connects the events of the panel. For the constructor of the window.
    void liga(ui::Form &janela, UsoDoPainel uso = {});

    /// The columns, the lists that are shown and the stored descriptions. Once, when the window loads.
    void monta(FormaListas forma);

    /// Shows or hides the button that asks for the job values; hidden unless a window offers it.
    void ofereceTrabalhos(bool sim);

    /// Nothing can be added or removed for that reason, as the buttons tell; an empty one lets all go on.
    void trava(const QString &motivo);

    /// `RecalculaTotais`: all four totals from the lists.
    void recalcula();

    /// The total of a document as it is stored, until a change adds up.
    void mostraTotal(const QString &total);

    /// Empties all lists, the totals with them.
    void limpa();

    /// The total, as it is shown.
    QString total() const;

    ListasItens &listas() const;

private:
    void btnItemAdd_Click();
    void btnItemRemove_Click();
    void btnLimpa_Click();
    void btnAdicionar_Click();
    void Lista_Insert();
    void habilitaBotoes();

    std::optional<Aba> destino() const;
    bool material() const { return listas().ativa() == abaMaterial; }
    void mostraTotais(const Totais &totais);

    std::unique_ptr<Ui::PainelItens> ui_;
    EntradaItem entrada_;
    UsoDoPainel uso_;
    QString travado_;
};

} // namespace documents
