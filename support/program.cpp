#include "support/program.h"

#include "support/boxes.h"
#include "support/otherprogram.h"

#include "core/banco.h"
#include "core/config.h"
#include "core/embaralha.h"
#include "core/esquema.h"
#include "core/janelas.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/form.h"
#include "platform/ui/wait.h"

#include <QDir>
#include <QTest>

#include <array>
#include <charconv>

using namespace Qt::StringLiterals;

namespace support
{

namespace
{

/// A test that locks the file to be refused would wait for the limit of the program.
constexpr std::chrono::milliseconds lockWait{300};

/// Without its fixture no case means anything: the whole program stops.
[[noreturn]] void stop(const QString &reason)
{
    qFatal("%s", qPrintable(reason));
}

template<class Action>
auto mustSucceed(Action action)
{
    try {
        return action();
    } catch (const runtime::RuntimeError &error) {
        stop(u"%1: %2"_s.arg(error.number()).arg(error.description()));
    }
}

template<class Number>
QString shortest(Number number)
{
    std::array<char, 400> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

struct AsText {
    QString operator()(runtime::Empty /*none*/) const { return u"<Empty>"_s; }
    QString operator()(runtime::Null /*none*/) const { return u"<Null>"_s; }
    QString operator()(bool value) const { return value ? u"True"_s : u"False"_s; }
    QString operator()(qint16 value) const { return QString::number(value); }
    QString operator()(qint32 value) const { return QString::number(value); }
    QString operator()(float value) const { return shortest(value); }
    QString operator()(double value) const { return shortest(value); }
    QString operator()(runtime::Date value) const { return runtime::Format(value, u"dd/mm/yyyy hh:mm:ss"); }
    QString operator()(const QString &value) const { return value; }
};

void critical(const QString &text)
{
    stop(text);
}

void setGlobals(const QString &folder)
{
    core::App::setPath(folder);
    core::ArquivoINI = core::App::Path() + u"\\config.ini"_s;
    core::ArquivoLogo = core::App::Path() + u"\\dados\\logo.bmp"_s;
    core::ArquivoFundo = u"\\dados\\bg1024.bmp"_s;
    core::NomeEmpresa = u"Tarvelo"_s;
    core::CodOperador = 1;
    core::ModoChamada = 0;
    core::CodigoConsulta = 0;
}

void readSettings()
{
    core::CarregaConfig();
    core::ArquivoDB = core::LeINI(u"Config"_s, u"FileDB"_s, false);
    core::ArquivoCEP = core::LeINI(u"Config"_s, u"FileCEP"_s, false);
    core::AutoCompletar = core::Config(u"AutoComplete"_s) == u"S";
}

void addOperator()
{
    core::AcrescentaLinha(u"Senha"_s, [](dao::Recordset &row) {
        row[u"Codigo"] = qint16{1};
        row[u"Nome"] = u"ADMIN"_s;
        row[u"Senha"] = core::Embaralha(u"123456"_s);
        row[u"Admin"] = true;
    });
}

void openDatabase()
{
    const dao::Unit unit; // one write, and not one a table
    core::AbreOuCriaBanco(critical);
    core::CriarDB(critical);
    addOperator();
}

void close(std::shared_ptr<dao::Database> &database)
{
    if (database) {
        database->Close();
        database.reset();
    }
}

} // namespace

Program::Program()
{
    if (!folder_.isValid() || !QDir(folder_.path()).mkpath(u"DADOS"_s)) {
        stop(u"No folder for the test: "_s + folder_.errorString());
    }
    ui::Application::resetEnd();
    ui::setWaitFactor(0);
    runtime::setClock(runtime::CDate(u"15/05/2024 10:30:00"_s));
    setGlobals(folder_.path());
    ui::setBoxTitle(core::NomeEmpresa);
    printer::printer().setDevice(printer::devicePdf.toString());
    printer::printer().setOutputFolder(QDir(path(u"impressos"_s)));
    core::LigaPerguntas();
    core::LigaBanco();
    readSettings();
    mustSucceed(openDatabase);
    dao::DBEngine::SetLockWait(lockWait);
    Boxes::whileUp([] { return core::DBDados ? whatHolds(core::DBDados->path()) : QString(); });
}

Program::~Program()
{
    ui::Forms::instance().unloadAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Boxes::whileUp({});
    close(core::DBDados);
    close(core::DBCEP);
    runtime::setClock(std::nullopt);
}

QString Program::path(const QString &name) const
{
    return name.isEmpty() ? folder_.path() : folder_.filePath(name);
}

void Program::config(const QString &key, const QString &value, const QString &section)
{
    static const QStringList clear{u"FileDB"_s, u"FileCEP"_s, u"NotaPeca"_s, u"NotaServico"_s};
    core::GravaINI(section, key, value, !clear.contains(key));
}

void Program::originBook()
{
    core::CriaLivroOrigem(critical);
}

void Program::sql(const QString &statement)
{
    mustSucceed([&] { core::DBDados->Execute(statement); });
}

std::vector<QStringList> Program::rows(const QString &select) const
{
    return mustSucceed([&] {
        std::vector<QStringList> all;
        for (dao::Recordset set = core::DBDados->OpenRecordset(select); !set.Eof(); set.MoveNext()) {
            QStringList row;
            for (int place = 0; place < set.fieldCount(); ++place) {
                row << std::visit(AsText{}, set.value(place));
            }
            all.push_back(row);
        }
        return all;
    });
}

runtime::Value Program::value(const QString &select) const
{
    return mustSucceed([&]() -> runtime::Value {
        const dao::Recordset set = core::DBDados->OpenRecordset(select);
        return set.Eof() ? runtime::Value{} : set.value(0);
    });
}

qint32 Program::customer(const QString &name, const QString &limit)
{
    return mustSucceed([&] {
        return core::AcrescentaLinha(u"Clientes"_s, [&](dao::Recordset &row) {
            row[u"DataCadastro"] = runtime::Today();
            row[u"Nome"] = name;
            row[u"LimiteCredito"] = core::ValorOuNulo(limit);
        });
    });
}

qint32 Program::vehicle(qint32 customer, const QString &plate, const QString &model)
{
    return mustSucceed([&] {
        return core::AcrescentaLinha(u"Veiculos"_s, [&](dao::Recordset &row) {
            row[u"CodCliente"] = customer;
            row[u"MarcaModelo"] = model;
            row[u"Placas"] = plate;
        });
    });
}

qint32 Program::part(const QString &name, const QString &kind, const QString &price, bool stock, int unit)
{
    return mustSucceed([&] {
        const qint32 code = core::AcrescentaLinha(u"Pecas"_s, [&](dao::Recordset &row) {
            row[u"Nome"] = name;
            row[u"PS"] = kind;
            row[u"UM"] = static_cast<qint16>(unit);
            row[u"ValorVenda"] = price;
            row[u"ControlaEstoque"] = static_cast<qint16>(stock ? -1 : 0);
        });
        if (stock) {
            core::AbreEstoque(code, u"ENTRADA INICIAL"_s, 0.0F);
        }
        return code;
    });
}

} // namespace support
