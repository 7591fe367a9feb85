#include "core/config.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/ui/form.h"
#include "platform/ui/textorder.h"
#include "support/program.h"
#include "tools/amostra/amostra.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"
#include "tools/demonstracao/programa.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

constexpr int customers = 300;

class Oficina : public QObject
{
    Q_OBJECT

public:
    explicit Oficina(QString folder) : folder_(std::move(folder)) {}

private slots:
    void amostra();
    void procuraPorUmPedacoDoNome();
    void ordenaELocaliza();

private:
    QString folder_;
};

/// The workshop is written first, as a program of its own would, and then opened like any other.
void Oficina::amostra()
{
    amostra::AbrePasta(folder_);
    const auto written = amostra::Preenche({.clientes = customers});
    core::CarregaConfig();
    core::GravaINI(u"Config"_s, u"PreencheCadastroAutomatico"_s, u"S"_s, true);
    core::DBDados->Close();
    core::DBDados.reset();
    install(folder_);
    start(operadorDaOficina());
    auto *window = choose(u"itmCadaClie"_s, u"frmCadaCliente"_s);
    QCOMPARE(cadastro::list(window)->count(), customers);
    done(u"oficina de amostra: %1 clientes, %2 veículos, %3 peças, %4 ordens; o cadastro abre preenchido"_s
             .arg(written.clientes)
             .arg(written.veiculos)
             .arg(written.pecas)
             .arg(written.ordens));
}

void Oficina::procuraPorUmPedacoDoNome()
{
    auto *window = form(u"frmCadaCliente"_s);
    type(window, u"txtTexto"_s, u"silva"_s);
    click(window, u"btnPesquisar"_s);
    const QStringList names = cadastro::columnOf(window, 1);
    QVERIFY(!names.isEmpty() && names.size() < customers);
    for (const QString &name : names) {
        QVERIFY2(name.contains(u"SILVA"_s, Qt::CaseInsensitive), qPrintable(name));
    }
    picture(u"frmCadaCliente_pesquisa"_s);
    done(u"procura por um pedaço do nome: %1 clientes"_s.arg(names.size()));
}

void Oficina::ordenaELocaliza()
{
    constexpr int district = 4;
    auto *window = form(u"frmCadaCliente"_s);
    click(window, u"btnTodos"_s);
    QVERIFY(!std::ranges::is_sorted(cadastro::columnOf(window, district), ui::lessAsText));
    cadastro::clickHeader(window, district);
    QVERIFY(std::ranges::is_sorted(cadastro::columnOf(window, district), ui::lessAsText));
    picture(u"frmCadaCliente_ordenado"_s);
    type(window, u"txtTexto"_s, u"mar"_s);
    click(window, u"btnLocalizar"_s);
    QVERIFY(support::text(window, u"txtNome"_s).startsWith(u"MAR"_s, Qt::CaseInsensitive));
    picture(u"frmCadaCliente_localizado"_s);
    done(u"lista ordenada pelo bairro, cliente localizado: "_s + support::text(window, u"txtNome"_s));
    stop();
}

} // namespace

Assunto oficina(const QString &folder)
{
    return std::make_unique<Oficina>(folder);
}

} // namespace demonstracao

#include "oficina.moc"
