#pragma once

#include "core/config.h"
#include "core/modulo.h"
#include "platform/ui/form.h"
#include "shell/frmMDI.h"
#include "shell/shell.h"
#include "support/boxes.h"
#include "support/diskfiles.h"
#include "support/program.h"

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWindow>

#include <memory>

/// What the cases on the settings share: the main window, its menu worked by the mouse, and the file as it stands on
/// the disk.
class SettingsTest : public QObject
{
protected:
    static inline const QString done = QStringLiteral("Gravação Concluída com Sucesso");

    static QString yesOrNo(const QString &prompt) { return prompt + QStringLiteral("\nS - Sim\nN - Não"); }

    void start()
    {
        program_ = std::make_unique<support::Program>();
        boxes_ = std::make_unique<support::Boxes>();
        boxes_->title(QStringLiteral("Tarvelo"));
        shell::principal().MDIForm_Load();
        shell::principal().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&shell::principal()));
    }

    void stop()
    {
        boxes_.reset();
        ui::Forms::instance().unloadAll();
        shell::fechaPrincipal();
        program_.reset();
    }

    /// Chooses a command of the settings' menu, and returns when what it asks has been answered.
    static void choose(const QString &item)
    {
        auto &main = shell::principal();
        auto *bar = main.findChild<QMenuBar *>();
        auto *menu = main.findChild<QMenu *>(QStringLiteral("mnuConfig"));
        auto *command = main.findChild<QAction *>(item);
        QVERIFY2(command != nullptr && command->isEnabled(), qPrintable(item));
        const QPoint title = bar->mapTo(&main, bar->actionGeometry(menu->menuAction()).center());
        QTest::mouseClick(main.windowHandle(), Qt::LeftButton, Qt::NoModifier, title);
        QVERIFY(menu->isVisible());
        QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(command).center());
        QVERIFY(!menu->isVisible());
    }

    /// Chooses a command and checks that all expected boxes came.
    void ask(const QString &item)
    {
        choose(item);
        boxes_->finish();
    }

    QByteArray file() const { return support::contentsOf(program_->path(QStringLiteral("config.ini"))); }

    /// The value of a key as its line holds it.
    QByteArray raw(const QString &key) const
    {
        const QByteArray mark = key.toLatin1() + '=';
        for (const QByteArray &line : file().split('\n')) {
            if (line.startsWith(mark)) {
                return line.mid(mark.size()).trimmed();
            }
        }
        return "(no such key)";
    }

    /// Worked out here: each character three further on, then base64. For up to 47 characters, on one line.
    static QByteArray scrambled(const QString &value)
    {
        QByteArray letters = value.toLatin1();
        for (char &letter : letters) {
            letter = static_cast<char>(letter + 3);
        }
        return letters.toBase64();
    }

    void isStored(const QString &key, const QString &value) const
    {
        QCOMPARE(core::Config(key), value);
        QCOMPARE(raw(key), scrambled(value));
    }

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
};
