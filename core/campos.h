#pragma once

#include "core/caixadata.h"
#include "core/combos.h"
#include "core/conversoes.h"
#include "core/janelas.h"
#include "core/mostra.h"

#include <QString>

#include <functional>
#include <optional>
#include <span>

class QAbstractButton;
class QComboBox;
class QWidget;

namespace dao
{
class Recordset;
}

namespace ui
{
class Form;
}

/// Fields told as data: registers, entry rows and whatever else writes the texts of its controls into a row.
namespace core
{

/// A control and its column. The table's order is the order of showing and of writing. A column that the statement
/// does not bring leaves the control as it is.
struct Campo {
    QStringView controle; ///< "" for a column that is written without one
    QStringView coluna;
    Mostra mostra = nullptr;
    Converte grava = nullptr;                ///< nullptr: never written
    QChar (*tecla)(QChar) = nullptr;         ///< what may be typed
    std::optional<TipoMascara> mascara = {}; ///< money on leaving, the others on each change
    std::optional<RegrasDaData> data = {};   ///< of a date box
    std::optional<ListaCombo> lista = {};    ///< completed from that list, which btnXAdd and btnXRemove of a cboX keep
    bool aceitaMaior = false;                ///< a check of the window speaks of longer texts than the column's
};

/// A field that is shown otherwise than its table tells; nullptr leaves it as it is.
struct OutraMostra {
    QStringView controle;
    Mostra mostra;
};

/// A check before writing. A refused one shows its message and gives `foco` the focus, or the control itself.
struct Verificacao {
    QStringView controle;
    bool (*aceita)(const QString &texto);
    QStringView mensagem;
    QStringView foco = {};
    bool soNaInclusao = false;
};

/// The text of a control, by the control's name.
using TextoDoControle = std::function<QString(QStringView controle)>;

/// Writes the fields into the row being added or edited. No window is needed: the texts come from whoever has them.
void GravaCampos(dao::Recordset &linha, std::span<const Campo> campos, Gravacao gravacao, const TextoDoControle &texto);

/// The controls of a window by their names, and the fields among them that a table tells. A part of the window, which
/// it lives as long as.
class Campos
{
public:
    explicit Campos(ui::Form &janela, std::span<const Campo> campos, std::span<const Verificacao> verificacoes = {});

    /// Connects the events of the fields. Once, behind the window's `setupUi`.
    void liga();

    /// The buttons beside the combos are enabled by their texts, where a window disables what would do nothing.
    void ligaBotoesDasListas() const;

    /// The boxes take what their columns hold.
    void limita(const QString &tabela) const;

    /// Loads the lists of the combos, which empties their texts.
    void carregaListas() const;

    /// Shows a row: `outras` in place of the table's own ways, and with `esvaziaFaltas` a field whose column is not
    /// there is emptied.
    void mostra(const dao::Recordset &linha, std::span<const OutraMostra> outras = {}, bool esvaziaFaltas = false);

    void grava(dao::Recordset &linha, Gravacao gravacao) const;
    bool confere(Gravacao gravacao) const; ///< false when one check refused
    void limpa();                          ///< empties the fields
    void foca() const;                     ///< the first field that takes the focus has it, or will when it is shown

    /// A control by its name, and its text: that of an option button is "-1" or "0", that of a combo without typing the
    /// index of its entry.
    QWidget *controle(QStringView nome) const;
    QComboBox *combo(QStringView nome) const; ///< or nullptr
    QString texto(QStringView nome) const;
    void poeTexto(QStringView nome, const QString &texto);
    void esvazia(std::span<const QStringView> nomes);

    /// Runs what writes controls past `poeTexto`: what is stored is neither masked nor completed.
    void escreve(const std::function<void()> &escrita);

private:
    void muda(int indice);
    void sai(int indice);
    void acrescenta(int indice);
    void remove(int indice);

    void ligaLista(int indice);
    QAbstractButton *botao(const Campo &campo, QStringView fim) const;
    const Campo &campo(int indice) const { return campos_[static_cast<std::size_t>(indice)]; }

    ui::Form &janela_;
    std::span<const Campo> campos_;
    std::span<const Verificacao> verificacoes_;
    bool escrevendo_ = false;
};

} // namespace core
