#pragma once

#include "platform/ui/form.h"

#include <memory>

namespace Ui
{
class frmSplash;
}

namespace shell
{

/// Prepares settings and databases, tells each step in a growing list, and hands over to the login. A failing step is
/// passed over; only a folder that can't be used, a second instance and a database that can't be opened
/// end the program.
class frmSplash : public ui::Form
{
    Q_OBJECT

public:
    frmSplash();
    ~frmSplash() override;

    void Form_Load() override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void recusaPasta();
    void recusaSegundaInstancia();
    void carregaFigura();
    void mostraJanela();
    void inicializaVariaveis();
    void carregaConfiguracao();
    void leAutoCompletar();
    void iniciaCEP();
    void abreCEP();
    void iniciaBanco();
    void falhaDoBanco(const QString &descricao);

    void acrescenta(const QString &texto);
    void avanca(int valor);

    void btnFechar_Click();

    std::unique_ptr<Ui::frmSplash> ui_;
};

/// The main window's picture for a screen of this width in twips.
QString fundoDaTela(int larguraEmTwips);

} // namespace shell
