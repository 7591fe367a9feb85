#pragma once

#include "core/campos.h"
#include "core/lista.h"
#include "core/periodo.h"
#include "core/razao.h"
#include "platform/ui/form.h"

#include <optional>

class QAbstractButton;

namespace ui
{
class ListItem;
}

/// The windows that keep the rows of a table by hand: a period, a list and a row of boxes below it.
namespace core
{

/// A table of a movement window and the list that shows it. A window may keep several, one a tab or one an option.
struct TabelaMovimento {
    QStringView tabela;
    QStringView consulta;         ///< of the list, in front of the period
    QStringView consultaFim = {}; ///< and behind it
    Lista lista;                  ///< its first column is the row's code
    QStringView controleLista = u"Lista";
    QStringView exclusao = {};    ///< in front of the code; "" deletes the row of the table
    const Razao *razao = nullptr; ///< txtValor is posted by optEntrada or optSaida, and each change recalculates
};

/// A whole movement window. What has a value here is the usual way, and only what is done otherwise is told.
struct Movimento {
    QStringView janela;
    QStringView titulo; ///< tail of the caption
    std::span<const TabelaMovimento> tabelas;
    std::span<const Campo> campos;
    std::span<const Verificacao> verificacoes = {};
    std::optional<Periodo> periodo = Periodo{};
    QStringView codigo = u"lblCodigo";    ///< the hidden code of the row clicked last; "" for the row that is selected
    QStringView travado = u"Lista";       ///< what is disabled while a row is changed, beside the two buttons
    bool soAdministrador = false;         ///< only an administrator changes and deletes
    bool localizaAntesDeConferir = false; ///< a row that is gone is not checked
    bool cliqueCopia = false;             ///< a click copies the row into the boxes, and btnAlterar writes at once
    QStringView semCodigo = {};           ///< for saving without a code; "" says nothing
    QStringView naoLocalizado = {};       ///< for a row that is gone when it is changed; "" says nothing and goes on
    bool teclaP = false;
};

/// The window that a `Movimento` tells. btnIncluir checks the boxes and writes a new row. btnAlterar brings the row
/// clicked last into the boxes and becomes "Salvar", btnVoltar "Cancelar", and only these two tell the state. What no
/// table can say is an override.
class JanelaMovimento : public ui::Form
{
    Q_OBJECT

public:
    void Form_Load() override;

protected:
    explicit JanelaMovimento(const Movimento &movimento);

    /// Connects the events of the boxes, the lists and the commands, of those that the window has. Once, behind its
    /// `setupUi`.
    void ligaMovimento();

    // What a window may do otherwise.
    virtual const TabelaMovimento &tabela() const; ///< the one that the commands are for: the first
    virtual QString consulta() const;              ///< of the list; "" leaves it empty
    virtual void preencheAoAbrir();                ///< the list that is in front, where there are several
    virtual QString dono() const { return {}; }    ///< the owner of the rows, in a ledger that has owners
    virtual bool confere(Gravacao gravacao);       ///< false when one check refused
    virtual void inclui();                         ///< writes the new row
    virtual void altera(dao::Recordset &linha);    ///< into the row being edited
    virtual void copia(const ui::ListItem &linha); ///< the row into the boxes, each from the column of its field
    virtual void limpa(); ///< the boxes, behind a row that was written or given up; `alterando` tells which one
    virtual void depoisDePreencher(const Somas & /*somas*/, bool /*vazia*/) {}
    virtual QString ordemDaLinha(const ui::ListItem &linha) const; ///< of a row with a picture: its tag
    virtual void teclaP(const ui::ListItem & /*linha*/) {}         ///< on a row with a code

    /// Fills the list of the table, and has its totals shown.
    void preenche();

    ui::ListView &lista() const;
    Campos &campos() { return campos_; }
    const Campos &campos() const { return campos_; }
    bool alterando() const;

    void btnIncluir_Click();
    void btnAlterar_Click();
    void btnExcluir_Click();
    void btnVoltar_Click();
    void Lista_Click(int linha);
    void Lista_DblClick(int linha);
    void Lista_P();

private:
    QString codigo() const;
    int linhaDe(const QString &codigo) const;
    void escolhe(const QString &codigo);
    std::optional<dao::Recordset> linhaGravada() const;
    int colunaDe(QStringView coluna) const;
    Operacao operacao() const;
    void copiaLado(const ui::ListItem &linha);
    void comeca();
    void salva();
    void termina(const QString &alterado);
    void trava(bool alterando);
    void recalcula();
    QAbstractButton *botao(const QString &nome) const;

    const Movimento &movimento_;
    Campos campos_;
};

/// A movement window that its table tells whole: its layout `Controles` is a class made from a .ui file.
template<class Controles>
class MovimentoSimples : public JanelaMovimento
{
public:
    explicit MovimentoSimples(const Movimento &movimento) : JanelaMovimento(movimento)
    {
        controles_.setupUi(this);
        ligaMovimento();
    }

private:
    Controles controles_;
};

} // namespace core
