#include "core/config.h"
#include "core/modulo.h"
#include "platform/files/filelock.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/application.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/program.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"
#include "tools/demonstracao/programa.h"

#include <QDir>
#include <QFile>
#include <QMainWindow>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;
using runtime::Value;
using support::Boxes;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

const QString written = u"Gravação Concluída com Sucesso"_s;

/// A setting that a menu command asks for: what is typed, and what the settings hold then.
struct Answer {
    QString item;
    QString prompt;
    QString typed;
    QString key;
    QString stored;
};

void answer(Boxes &boxes, const Answer &one)
{
    boxes.input(one.prompt, one.typed).information(written);
    choose(one.item);
    boxes.finish();
    QCOMPARE(core::Config(one.key), one.stored);
}

QString yesOrNo(const QString &prompt)
{
    return prompt + u"\nS - Sim\nN - Não"_s;
}

QString day(int fromToday)
{
    return runtime::Format(runtime::DateAdd(u"d", fromToday, runtime::Today()), u"dd/mm/yyyy");
}

/// A batch file is the workshop's own: the folder that takes the copies stands at its head.
void nameFolder(const QString &script, const QString &folder)
{
    QFile file(core::App::Path() + u'/' + script);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QString text = QString::fromUtf8(file.readAll());
#ifdef Q_OS_WIN
    const QRegularExpression line(u"^set \"PASTA=[^\r\n]*"_s, QRegularExpression::MultilineOption);
    const QString mine = u"set \"PASTA=%1\""_s.arg(QDir::toNativeSeparators(folder));
#else
    const QRegularExpression line(u"^PASTA=.*$"_s, QRegularExpression::MultilineOption);
    const QString mine = u"PASTA=\"%1\""_s.arg(folder);
#endif
    QVERIFY(text.contains(line));
    file.resize(0);
    file.write(text.replace(line, mine).toLocal8Bit());
}

/// The tool holds the program folder until the restoring is done: no program starts there meanwhile.
bool folderIsFree()
{
    return files::FileLock(core::App::Path() + u"/tarvelo.lock"_s).take() != files::FileLock::Result::Busy;
}

/// Copies and restorings work on behind the command; on a busy machine they take their time.
constexpr int longestCopy = 60'000;

class Instalacao : public QObject
{
    Q_OBJECT

private slots:
    void dadosDaOficina();
    void taxasELembretes();
    void orcamentoConfigurado();
    void logoConfigurado();
    void avisosNaAbertura();
    void copiaDoBanco();
    void restauracaoDoBanco();

private:
    static void enterBill();
    static QDir copies() { return QDir(core::App::Path() + u"/copias"_s); }
    static QStringList made() { return copies().entryList({u"DADOS-*.MDB"_s}); }
    static QStringList kept() { return QDir(core::App::Path() + u"/DADOS"_s).entryList({u"DADOS-antes-*.MDB"_s}); }
};

/// The name stands in the title of the main window at once.
void Instalacao::dadosDaOficina()
{
    const QString name = u"Oficina Marina"_s;
    Boxes boxes;
    boxes.input(u"Digite o Nome da Empresa"_s, name).information(written);
    choose(u"itmConfigNome"_s);
    boxes.finish();
    QVERIFY(mainWindow()->windowTitle().startsWith(name + u" - Tarvelo "_s));
    answer(boxes, {u"itmConfigEndereco"_s, u"Digite o Endereço da Empresa"_s, u"Rua das Oficinas, 88"_s, u"Endereco"_s,
                   u"Rua das Oficinas, 88"_s});
    answer(boxes, {u"itmConfigBairro"_s, u"Digite o Bairro - Cidade - UF da Empresa"_s, u"Centro - Curitiba - PR"_s,
                   u"Bairro"_s, u"Centro - Curitiba - PR"_s});
    answer(boxes, {u"itmConfigTelefone"_s, u"Digite o Telefone da Empresa"_s, u"(41) 3333-8888"_s, u"Telefone"_s,
                   u"(41) 3333-8888"_s});
    done(u"nome, endereço e telefone da oficina configurados"_s);
}

void Instalacao::taxasELembretes()
{
    Boxes boxes;
    const QString rate = u"Digite o valor de juros (%) mensal para cálculo de parcelamento de ordens de serviços"_s;
    boxes.input(rate, u"dois"_s).exclamation(u"Você deve inserir uma taxa válida"_s);
    choose(u"itmConfigTaxaJuros"_s);
    boxes.finish();
    answer(boxes, {u"itmConfigTaxaJuros"_s, rate, u"2"_s, u"Juros"_s, u"0,02"_s});
    answer(boxes, {u"itmConfigDesconto"_s, u"Digite o valor de desconto (%) máximo permitido para ordens de serviços"_s,
                   u"10"_s, u"Desconto"_s, u"0,10"_s});

    boxes.input(yesOrNo(u"Lembrar quando você deve realizar um backup do sistema"_s), u"s"_s)
        .input(u"Freqüência de Dias do Backup (Nº de Dias)"_s, u"3"_s)
        .information(written);
    choose(u"itmConfigAvisaBackup"_s);
    boxes.finish();
    QCOMPARE(core::Config(u"BackupDias"_s), u"3"_s);
    done(u"juros, desconto e lembrete de backup configurados"_s);
}

void Instalacao::orcamentoConfigurado()
{
    Boxes boxes;
    auto *window = choose(u"itmConfigOrcamento"_s, u"frmConfigOrcamento"_s);
    click(window, u"opt3_0"_s);
    type(window, u"txtLinha1"_s, u"orçamento válido por 10 dias"_s);
    picture(u"frmConfigOrcamento"_s);
    boxes.information(u"Gravação efetuada com sucesso"_s);
    click(window, u"btnGravar"_s);
    boxes.finish();
    QCOMPARE(core::ConfigOrcamento(u"P3"_s), u"0"_s);
    QCOMPARE(core::ConfigOrcamento(u"P4"_s), core::ConfigOrcamento(u"P5"_s));
    QCOMPARE(core::ConfigOrcamento(u"Texto1"_s), u"ORÇAMENTO VÁLIDO POR 10 DIAS"_s);
    done(u"orçamento configurado"_s);
}

void Instalacao::logoConfigurado()
{
    Boxes boxes;
    auto *window = choose(u"itmConfigLogo"_s, u"frmConfigLogo"_s);
    picture(u"frmConfigLogo"_s);
    boxes.information(u"Gravação efetuada com sucesso!"_s);
    click(window, u"Command6"_s);
    boxes.finish();
    close(window);
    done(u"logo gravado"_s);
}

/// A bill that falls due in three days: the next start tells of it, and the menu does at any time.
void Instalacao::enterBill()
{
    auto *window = choose(u"itmMoviContasPR"_s, u"frmMoviContasPR"_s);
    support::control<QTabWidget>(window, u"tabContas"_s)->setCurrentIndex(1);
    cadastro::fill(window, {{u"txtData"_s, day(0)},
                            {u"txtDescricao"_s, u"aluguel do salão"_s},
                            {u"txtValor"_s, u"1800"_s},
                            {u"txtVencimento"_s, day(3)}});
    click(window, u"btnIncluir"_s);
    close(window);
}

QStringList firstRow(ui::Form *notices)
{
    const auto bill = cadastro::list(notices, u"Lista_0"_s)->item(0);
    return {bill.text(), bill.subItem(1), bill.subItem(2)};
}

void Instalacao::avisosNaAbertura()
{
    enterBill();
    stop();
    start(primeiroOperador(), {}, Avisos::Ficam);
    const QStringList bill{u"ALUGUEL DO SALÃO"_s, u"1.800,00"_s, day(3)};
    QCOMPARE(firstRow(form(u"frmInfoAviso"_s)), bill);
    picture(u"frmInfoAviso"_s);
    close(form(u"frmInfoAviso"_s));

    auto *window = choose(u"itmRelaVencimentosContas"_s, u"frmInfoAviso"_s);
    QCOMPARE(firstRow(window), bill);
    close(window);
    done(u"avisos de vencimento: na abertura do programa e pelo menu"_s);
}

void Instalacao::copiaDoBanco()
{
    nameFolder(u"BACKUPDA.BAT"_s, copies().path());
    Boxes boxes;
    boxes.okCancel(u"Insira um Disco Limpo no drive A:"_s, QMessageBox::Warning, true);
    choose(u"itmBackBackBD"_s);
    boxes.finish();
    QTRY_COMPARE_WITH_TIMEOUT(made().size(), 1, longestCopy);
    done(u"backup do banco de dados, com o programa aberto: "_s + made().front());
}

/// A customer is lost, and comes back with the copy. The restore ends the program, which is started again.
void Instalacao::restauracaoDoBanco()
{
    Boxes boxes;
    nameFolder(u"RESTORDA.BAT"_s, copies().path());
    const QString count = u"SELECT count(Codigo) FROM Clientes"_s;
    const auto before = value(count);
    auto *window = choose(u"itmCadaClie"_s, u"frmCadaCliente"_s);
    erase(window, boxes, u"Clientes"_s, runtime::CStr(value(u"SELECT Nome FROM Clientes ORDER BY Nome DESC"_s)));
    close(window);
    boxes.information(u"Para Restaurar o banco de dados, você dererá reiniciar o programa"_s)
        .okCancel(u"Insira o disco com o backup do banco de dados no drive A:"_s, QMessageBox::Warning, true);
    choose(u"itmBackRestBD"_s);
    QVERIFY(ui::Application::ended());
    boxes.finish();
    stop();
    ui::Application::resetEnd();
    QTRY_COMPARE_WITH_TIMEOUT(kept().size(), 1, longestCopy);
    QTRY_VERIFY_WITH_TIMEOUT(folderIsFree(), longestCopy);
    start(primeiroOperador());
    QCOMPARE(value(count), before);
    done(u"restauração do banco de dados: o programa terminou, e o cliente excluído voltou"_s);
}

} // namespace

Assunto instalacao()
{
    return std::make_unique<Instalacao>();
}

} // namespace demonstracao

#include "instalacao.moc"
