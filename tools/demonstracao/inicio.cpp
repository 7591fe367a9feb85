#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/modal.h"
#include "support/program.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"
#include "tools/demonstracao/programa.h"

#include <QTest>

using namespace Qt::StringLiterals;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

class Inicio : public QObject
{
    Q_OBJECT

public:
    explicit Inicio(QString folder) : folder_(std::move(folder)) {}

private slots:
    void novaInstalacaoPrimeiroOperadorELogin();
    void sobreOPrograma();

private:
    QString folder_;
};

class Reabertura : public QObject
{
    Q_OBJECT

private slots:
    void fechaEReabre();
};

void firstOperator()
{
    const Operador who = primeiroOperador();
    auto *window = form(u"frmSenhaManut"_s);
    type(window, u"txtCodigo"_s, who.code);
    type(window, u"txtNome"_s, who.name.toLower());
    type(window, u"txtSenha"_s, who.password);
    type(window, u"txtConfirma"_s, who.password, false);
    picture(u"frmSenhaManut"_s, window);
    click(window, u"btnIncluir"_s);
    click(window, u"btnCancelar"_s);
}

void Inicio::novaInstalacaoPrimeiroOperadorELogin()
{
    install(folder_);
    start(primeiroOperador(), [] {
        picture(u"frmSplash"_s, form(u"frmSplash"_s));
        done(u"nova instalação: banco de dados criado, nenhum operador"_s);
        support::whenShown(u"frmSenhaManut"_s, [] { firstOperator(); });
        // It blinks: a user presses it while he sees it.
        QTRY_VERIFY(support::controlOf(form(u"frmSenha"_s), u"btnManutencao"_s)->isVisible());
        click(form(u"frmSenha"_s), u"btnManutencao"_s);
        done(u"primeiro operador cadastrado, administrador"_s);
    });
    picture(u"frmMDI"_s);
    done(u"login aceito, janela principal aberta"_s);
}

void Inicio::sobreOPrograma()
{
    auto *window = choose(u"itmInfoSobre"_s, u"frmInfo"_s);
    picture(u"frmInfo"_s);
    click(window, u"cmdOK"_s);
}

void Reabertura::fechaEReabre()
{
    stop();
    start(primeiroOperador());
    auto *window = choose(u"itmOSConsultar"_s, u"frmOSConsulta"_s);
    QCOMPARE(support::control<ui::ListView>(window, u"Lista"_s)->item(0).text(), u"0001"_s);
    done(u"programa reaberto, a ordem 0001 continua lá"_s);
    stop();
}

} // namespace

Assunto inicio(const QString &folder)
{
    return std::make_unique<Inicio>(folder);
}

Assunto reabertura()
{
    return std::make_unique<Reabertura>();
}

} // namespace demonstracao

#include "inicio.moc"
