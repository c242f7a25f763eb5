// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The program's main window over a scratch home, loaded by the application
// object as a user's start loads it, on the offscreen platform; and the
// screenshots of its states.

#include "app/vorlano_app.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "estado/comun.h"

#include <QDBusConnection>
#include <QQuickItem>
#include <QQuickWindow>

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <semaphore>
#include <string>
#include <vector>

// Readable texts in the failures of the tests.
inline void PrintTo(const QString& s, std::ostream* os)
{
    *os << '"' << s.toStdString() << '"';
}

namespace pantallas {

class VentanaPrueba {
public:
    // The welcome already seen, unless asked otherwise (nullopt: as the
    // settings file says). `antes` prepares the home, the settings file or
    // the history before anything of the program has read them.
    explicit VentanaPrueba(std::optional<bool> bienvenidaVista = true,
                           const std::function<void(apoyo::CasaPrueba&)>& antes = {});

    apoyo::CasaPrueba casa;

    VorlanoApp& app() { return *app_; }
    Estado& estado() { return app_->estado(); }
    QQuickWindow* ventana() { return app_->ventana(); }

    // The object of that objectName in the settings window once it is
    // open, else in the main window; with `dentro`, below the object of that
    // name. Null when there is none.
    QObject* buscar(const std::string& nombre) const;
    QQuickItem* buscar(const std::string& dentro, const std::string& nombre) const;
    // Every item of that objectName below the one named `dentro`.
    std::vector<QQuickItem*> todos(const std::string& dentro, const std::string& nombre) const;
    // Its property; an invalid value when the object is missing.
    QVariant leer(const std::string& nombre, const char* propiedad) const;
    // A property of it as text, by default the text it shows.
    std::string texto(const std::string& nombre, const char* propiedad = "text") const
    {
        return leer(nombre, propiedad).toString().toStdString();
    }
    std::string textoEn(const std::string& dentro, const std::string& nombre) const;
    // Whether it is there and shown, its parents too.
    bool visible(const std::string& nombre) const;
    // A mouse click, or a double one, at the middle of the item, as the user
    // gives it, in the item's own window.
    void pulsar(QQuickItem* item, bool doble = false);
    void pulsar(const std::string& nombre, bool doble = false);
    std::string seccion() const { return app_->ventana()->property("seccion").toString().toStdString(); }

    // An analysis started from the window's state, waited for.
    void analizar();
    // Lets bindings, layouts and short animations settle.
    void asentar(int ms = 150);

private:
    std::unique_ptr<apoyo::Variable> home_;
    std::unique_ptr<VorlanoApp> app_;
};

// Keeps every worker of the state objects busy while it lives, so that an
// operation started meanwhile waits in its first state (analysing,
// measuring) for as long as a test looks at it.
class TrabajoRetenido {
public:
    TrabajoRetenido();
    ~TrabajoRetenido() { soltar(); }
    TrabajoRetenido(const TrabajoRetenido&) = delete;
    TrabajoRetenido& operator=(const TrabajoRetenido&) = delete;
    void soltar();

private:
    // Shared with the held tasks: one may still be inside acquire(), or not
    // yet started, when this object goes away.
    std::shared_ptr<std::counting_semaphore<>> paso_ = std::make_shared<std::counting_semaphore<>>(0);
    int ocupados_ = 0;
};

// org.freedesktop.FileManager1 on the test's session bus, on a connection
// of its own: keeps every list of items it is asked to show.
class GestorArchivos : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    GestorArchivos();
    ~GestorArchivos() override;
    // Whether the name could be taken.
    bool activo() const { return activo_; }
    const std::vector<QStringList>& mostrados() const { return mostrados_; }

public Q_SLOTS:
    void ShowItems(const QStringList& uris, const QString& arranque);

private:
    QDBusConnection conexion_;
    bool activo_ = false;
    std::vector<QStringList> mostrados_;
};

// With VORLANO_CAPTURAS set, writes the window there as
// "<nombre>-claro.png" and "<nombre>-oscuro.png", in the light and the dark
// palette, and checks that each shows more than a blank surface. Without
// it, does nothing.
void capturar(QQuickWindow* ventana, const std::string& nombre);

} // namespace pantallas
