#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "tests/support/program.h"
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

/// A register and the item that opens it.
struct Tela {
    QString item;
    QString window;
};

/// The row of those at the top that leaves the fewest cells empty.
int fullestRow(ui::Form *window)
{
    constexpr int inSight = 15;
    const auto rows = cadastro::rowsOf(window);
    const auto end = rows.begin() + std::min<qsizetype>(inSight, qsizetype(rows.size()));
    const auto fullest = std::max_element(rows.begin(), end, [](const QStringList &left, const QStringList &right) {
        return left.count(QString()) > right.count(QString());
    });
    return int(fullest - rows.begin());
}

class Telas : public QObject
{
    Q_OBJECT

public:
    explicit Telas(QString folder) : folder_(std::move(folder)) {}

private slots:
    void entra();
    void cadastros();
    void estoque();

private:
    static QString movedPart();

    QString folder_;
};

void Telas::entra()
{
    useFolder(folder_);
    start(operadorDaOficina());
}

void Telas::cadastros()
{
    const QList<Tela> telas = {{u"itmCadaClie"_s, u"frmCadaCliente"_s},
                               {u"itmCadaVeiculos"_s, u"frmCadaVeiculos"_s},
                               {u"itmCadaPecas"_s, u"frmCadaPecas"_s},
                               {u"itmCadaFornecedores"_s, u"frmCadaFornecedor"_s}};
    for (const Tela &tela : telas) {
        auto *window = choose(tela.item, tela.window);
        cadastro::clickRow(window, fullestRow(window));
        QVERIFY(!support::text(window, u"lblCodigo"_s).isEmpty());
        picture(tela.window);
        close(window);
    }
}

/// The part with the most movements: its ledger has something to show.
QString Telas::movedPart()
{
    const auto parts = core::DBDados->OpenRecordset(
        u"SELECT CodPeca, Count(Codigo) AS Linhas FROM Estoque GROUP BY CodPeca ORDER BY Count(Codigo) DESC"_s);
    return QString::number(std::get<qint32>(parts.value(0)));
}

void Telas::estoque()
{
    auto *window = choose(u"itmMoviEstoque"_s, u"frmMoviEstoque"_s);
    type(window, u"txtCodPeca"_s, movedPart());
    const auto twoYearsAgo = runtime::DateAdd(u"yyyy", -2, runtime::Today());
    type(window, u"txtDataInicio"_s, runtime::Format(twoYearsAgo, u"dd/mm/yyyy"));
    click(window, u"btnPreenche"_s);
    QVERIFY(cadastro::list(window)->count() > 1);
    cadastro::clickRow(window, 1);
    picture(u"frmMoviEstoque"_s);
    done(u"imagens das janelas da oficina de amostra, em escala %1"_s.arg(qApp->devicePixelRatio()));
    stop();
}

} // namespace

Assunto telas(const QString &folder)
{
    return std::make_unique<Telas>(folder);
}

} // namespace demonstracao

#include "telas.moc"
