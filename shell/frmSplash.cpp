#include "shell/frmSplash.h"

#include "core/caminhos.h"
#include "core/config.h"
#include "core/esquema.h"
#include "core/figuras.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/application.h"
#include "platform/ui/boxes.h"
#include "platform/ui/wait.h"
#include "shell/instancia.h"
#include "shell/passos.h"
#include "ui_frmSplash.h"

#include <QCloseEvent>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace shell
{
namespace
{

constexpr int twipsPorPixel = 15;
constexpr int arquivoAusente = 3024;

QString naPasta(const QString &nome)
{
    return core::App::Path() + nome;
}

QString leClaro(const QString &chave)
{
    return core::LeINI(u"Config"_s, chave, false);
}

/// The reason; what to do about it fills a box, not a line of the start.
QString primeiraLinha(const QString &texto)
{
    return texto.section(u'\n', 0, 0);
}

} // namespace

QString fundoDaTela(int larguraEmTwips)
{
    switch (larguraEmTwips) {
    case 15360:
        return u"\\dados\\bg1024.bmp"_s;
    case 19200:
        return u"\\dados\\bg1280.bmp"_s;
    default:
        return u"\\dados\\bg800.bmp"_s;
    }
}

frmSplash::frmSplash() : Form(u"frmSplash"_s), ui_(std::make_unique<Ui::frmSplash>())
{
    ui_->setupUi(this);
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);

    onClick(ui_->btnFechar, &frmSplash::btnFechar_Click);
}

frmSplash::~frmSplash() = default;

void frmSplash::Form_Load()
{
    recusaPasta();
    recusaSegundaInstancia();
    carregaFigura();
    core::ArquivoINI = naPasta(u"\\config.ini"_s);
    mostraJanela();
    {
        const ui::Hourglass ampulheta;
        inicializaVariaveis();
        carregaConfiguracao();
        iniciaCEP();
        iniciaBanco();
    }
    ui::Forms::instance().ShowModal(u"frmSenha"_s);
}

/// Ahead of all else: whatever is done in such a folder, or in another in its place, would be done to the wrong data.
void frmSplash::recusaPasta()
{
    const QString defeito = core::defeitoDaPasta(core::App::Path());
    if (!defeito.isEmpty()) {
        ui::ClosingBox(defeito, QString::fromUtf16(core::App::Title));
        ui::End();
    }
}

void frmSplash::recusaSegundaInstancia()
{
    if (OutraInstancia()) {
        ui::MsgBox(u"Este programa já está aberto.\nEsta instância será fechada..."_s, ui::Icon::Exclamation,
                   QString::fromUtf16(core::App::Title));
        ui::End();
    }
}

void frmSplash::carregaFigura()
{
    const auto figura = QPixmap::fromImage(core::LeFigura(naPasta(u"\\dados\\splash.bmp"_s)));
    ui_->imgFundo->setPixmap(figura);
    ui_->imgFundo->setVisible(!figura.isNull());
}

void frmSplash::mostraJanela()
{
    ui_->lblVersao->setText(u"Versão "_s + core::App::version());
    adjustSize();
    show();
    ui::CentraForm(*this, true);
}

void frmSplash::inicializaVariaveis()
{
    avanca(5);
    acrescenta(u"Inicializando Variáveis"_s);
    core::ArquivoFundo = fundoDaTela(screen()->size().width() * twipsPorPixel);
    const QString nome = core::Config(u"Nome"_s);
    core::NomeEmpresa = nome.isEmpty() ? QString::fromUtf16(core::App::Title) : nome;
    ui::setBoxTitle(core::NomeEmpresa);
}

void frmSplash::carregaConfiguracao()
{
    passaErros([] { core::CarregaConfig(); });
    core::ArquivoDB = leClaro(u"FileDB"_s);
    core::ArquivoCEP = leClaro(u"FileCEP"_s);
    leAutoCompletar();
    core::ArquivoLogo = naPasta(u"\\dados\\logo.bmp"_s);
    ui::Espera(1);
    acrescenta(u" - Ok\n"_s);
    avanca(20);
}

void frmSplash::leAutoCompletar()
{
    const QString valor = core::Config(u"AutoComplete"_s);
    if (valor.isEmpty()) {
        core::GravaINI(u"Config"_s, u"AutoComplete"_s, u"S"_s, true);
    }
    core::AutoCompletar = valor.isEmpty() || valor == u"S";
}

void frmSplash::iniciaCEP()
{
    acrescenta(u"Iniciando Banco de CEP's"_s);
    avanca(40);
    if (core::Config(u"CEP"_s) == u"On") {
        abreCEP();
    } else {
        acrescenta(u" - Desativado"_s);
    }
    acrescenta(u"\n"_s);
    avanca(60);
    ui::Espera(1);
    avanca(80);
}

void frmSplash::abreCEP()
{
    try {
        core::DBCEP = dao::DBEngine::OpenDatabase(core::caminho(core::ArquivoCEP), true);
        acrescenta(u" - OK"_s);
    } catch (const runtime::RuntimeError &erro) {
        if (erro.number() == arquivoAusente) {
            acrescenta(u" - Arquivo não encontrado!"_s);
            return;
        }
        acrescenta(u" - "_s + primeiraLinha(erro.description()));
        core::GravaINI(u"Config"_s, u"CEP"_s, u"Off"_s, true);
    }
}

void frmSplash::iniciaBanco()
{
    acrescenta(u"Iniciando Banco de Dados"_s);
    try {
        core::AbreOuCriaBanco([](const QString &texto) { ui::MsgBox(texto, ui::Icon::Critical); });
    } catch (const runtime::RuntimeError &erro) {
        falhaDoBanco(erro.description());
    }
    acrescenta(u" - OK\n"_s);
    ui::Espera(1);
    avanca(100);
}

void frmSplash::falhaDoBanco(const QString &descricao)
{
    acrescenta(u" - "_s + primeiraLinha(descricao) + u'\n');
    ui::ClosingBox(u"Não foi possível abrir o banco de dados do sistema.\r\n"_s + descricao);
    ui::End();
}

void frmSplash::acrescenta(const QString &texto)
{
    ui_->lblStatus->setText(ui_->lblStatus->text() + texto);
    ui_->lblStatus->repaint();
}

void frmSplash::avanca(int valor)
{
    ui_->pnlBarra->setValue(valor);
    ui_->pnlBarra->repaint();
}

void frmSplash::btnFechar_Click()
{
    ui::End();
}

void frmSplash::closeEvent(QCloseEvent *event)
{
    if (!unloading()) {
        ui::Application::run([] { ui::End(); });
    }
    Form::closeEvent(event);
}

} // namespace shell
