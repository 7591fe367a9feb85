#pragma once

#include <QMainWindow>

#include <memory>

namespace Ui
{
class frmMDI;
}

namespace shell
{

/// The main window: menus, toolbar, status bar and the area in which the work forms open. Closing it ends the program.
class frmMDI : public QMainWindow
{
    Q_OBJECT

public:
    frmMDI();
    ~frmMDI() override;

    /// Writes the operator who has logged in to the status bar.
    void mostraOperador(qint16 codigo, const QString &nome);

    /// Shows the workshop's name, the program's and its version, in the caption and on the status bar.
    void mostraTitulos();

    /// Gates the menus, shows the window, brings the database up to its schema and reminds of what is due. A step that
    /// fails is passed over.
    void MDIForm_Load();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void aplicaAdmin();
    void carregaFundo();
    void mostraUltimoBackup();

    void StatusBar_manutencao();

    std::unique_ptr<Ui::frmMDI> ui_;
};

/// The one main window, made at the first call and gone after `fechaPrincipal`.
frmMDI &principal();
void fechaPrincipal();

} // namespace shell
