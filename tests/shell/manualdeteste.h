#pragma once

#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/help.h"
#include "shell/frmMDI.h"
#include "shell/frmManual.h"
#include "shell/paginamanual.h"
#include "shell/shell.h"
#include "support/boxes.h"
#include "support/cadastro.h"
#include "support/modal.h"
#include "support/program.h"

#include <QFile>
#include <QTest>
#include <QTextBlock>

#include <memory>

/// A manual for the tests, beside the test program as it stands beside the program; its folder is its own.
namespace manualdeteste
{

using namespace Qt::StringLiterals;

inline const QString window = u"frmManual"_s;

inline QString filling(const QString &word)
{
    return u"<p>%1</p>"_s.arg(word).repeated(60);
}

/// Anchors of both kinds, links, a style that only a browser should use.
inline QString pages()
{
    return u"<!DOCTYPE html><html lang=\"pt-BR\"><head><meta charset=\"utf-8\"><title>Manual</title>"
           u"<style>h1 { color: #010203; } body { background-color: #ffffff; }</style></head><body>"
           u"<h1 id=\"topo\">Manual do Tarvelo</h1><p><a href=\"#frmCadaCliente\">Clientes</a> "
           u"<a href=\"http://example.com/\">fora</a> <a href=\"outro.html\">outro</a> <a href=\"#nada\">nada</a></p>"_s +
           filling(u"começo"_s) + u"<h2 id=\"frmMDI\">Janela principal</h2>"_s + filling(u"principal"_s) +
           u"<h2 id=\"frmSenha\">Entrada</h2>"_s + filling(u"senha"_s) +
           u"<h2 id=\"frmCadaCliente\">Cadastro de clientes</h2><p>Aqui está o ABACAXI.</p>"_s + filling(u"cliente"_s) +
           u"<h2><a name=\"frmInfo\"></a>Sobre o programa</h2><p>Outro abacaxi.</p>"_s + filling(u"sobre"_s) +
           u"<h2 id=\"frmInfoAviso\">Vencimentos</h2>"_s + filling(u"avisos"_s) + u"</body></html>"_s;
}

inline QString manualFile()
{
    return core::App::shipped(u"manual.html"_s);
}

inline void writeManual(const QString &html)
{
    QFile file(manualFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(html.toUtf8());
}

inline ui::Form *manual()
{
    return ui::Forms::instance().find(window);
}

inline shell::PaginaManual *page()
{
    return support::control<shell::PaginaManual>(manual(), u"txtManual"_s);
}

/// The heading at the upper edge of what is shown.
inline QString topmost()
{
    QTextBlock block = page()->cursorForPosition(QPoint(5, 24)).block();
    while (block.isValid() && block.blockFormat().headingLevel() == 0) {
        block = block.previous();
    }
    return block.text();
}

/// What a case begins and ends with.
class Cenario
{
public:
    Cenario()
    {
        ui::setHelp(shell::AbreManual);
        writeManual(pages());
    }
    ~Cenario()
    {
        support::failNotShown();
        boxes.reset();
        ui::Forms::instance().unloadAll();
        shell::fechaPrincipal();
        program.reset();
        ui::setHelp({});
        QFile::remove(manualFile());
    }
    Cenario(const Cenario &) = delete;
    Cenario &operator=(const Cenario &) = delete;

    std::unique_ptr<support::Program> program = std::make_unique<support::Program>();
    std::unique_ptr<support::Boxes> boxes = std::make_unique<support::Boxes>();
};

} // namespace manualdeteste
