#pragma once

#include "platform/ui/form.h"

#include "registers/registro.h"

namespace Ui
{
class PainelCadastro;
}

namespace registers
{

class PainelCadastro;

/// The window of a register: the fields of one record above a search line and a list of records. There is no mode of
/// entering or changing: the same fields serve for both, and only lblCodigo tells whether a record is shown. What a
/// register does is its table (`Registro`); what no table can say it overrides.
///
/// A register is also a picker: it reaches into the window that opened it, by the rows of its hand-backs.
class Cadastro : public ui::Form
{
    Q_OBJECT

public:
    ~Cadastro() override;

    void Form_Load() override;

protected:
    explicit Cadastro(const Registro &registro);

    /// Connects the events of the fields and of the panel. Once, behind the window's `setupUi`.
    void ligaCadastro(PainelCadastro &painel);

    // What a register may do otherwise.
    virtual void aoAbrir() {}                    ///< before the caption and the first focus
    virtual bool confere(Gravacao gravacao);     ///< the checks before the question; false when one refused
    virtual qint32 inclui();                     ///< writes the new record and gives its code
    virtual void depoisDeIncluir(qint32 codigo); ///< the hand-back, or list all and clear
    virtual void antesDeAlterar() {}             ///< between the question and the writing
    virtual void depoisDeExcluir() {}            ///< behind the reloaded list
    virtual void depoisDeCarregar() {}           ///< the record of a clicked row has been shown
    virtual void depoisDeDevolver() {}           ///< a chosen row has gone to the caller
    virtual void limpa();                        ///< empties the fields, the first one gets the focus

    virtual QString textoGravado(QStringView nome) const; ///< what of a control goes to the table

    TextoDoControle textosGravados() const;

    void btnPesquisar_Click();
    void btnLocalizar_Click();
    void btnTodos_Click();
    void btnIncluir_Click();
    void btnAlterar_Click();
    void btnExcluir_Click();
    virtual void btnCancelar_Click();
    void btnVoltar_Click();
    void Lista_Click();
    virtual void Lista_DblClick();

    core::Campos &campos() { return campos_; }
    const Ui::PainelCadastro &painel() const { return *painel_; }

private:
    void abre();
    void pesquisa(const QString &procurado);
    void carrega(const QString &codigo);
    void carregaSegunda(const QString &codigo);
    void carregaLocalizado(const QString &codigo);
    std::optional<dao::Recordset> linhaMostrada() const;
    bool recusaSemCodigo();
    void avisaNaoLocalizado() const;

    const Registro &registro_;
    core::Campos campos_;
    const Ui::PainelCadastro *painel_ = nullptr;
};

/// Makes the window of a register known with its hand-backs.
void RegistraCadastro(const Registro &registro, const ui::Forms::Factory &fabrica);

} // namespace registers
