// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The program's main window over a scratch home, loaded by the application
// object as a user's start loads it, on the offscreen platform; and the
// screenshots of its states.

#include "app/vorlano_app.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

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
    ~VentanaPrueba();

    apoyo::CasaPrueba casa;

    VorlanoApp& app() { return *app_; }
    Estado& estado() { return app_->estado(); }
    QQuickWindow* ventana() { return app_->ventana(); }

    // The object of that objectName in the window, or null.
    QObject* buscar(const QString& nombre) const;
    QObject* buscar(const char* nombre) const { return buscar(QString::fromUtf8(nombre)); }
    // The object of that objectName below the one named `dentro`, or null.
    QQuickItem* buscar(const char* dentro, const char* nombre) const;
    // Every item of that objectName below the one named `dentro`.
    std::vector<QQuickItem*> todos(const char* dentro, const char* nombre) const;
    // Its property; an invalid value when the object is missing.
    QVariant leer(const char* nombre, const char* propiedad) const;
    // Whether it is there and shown, its parents too.
    bool visible(const QString& nombre) const;
    bool visible(const char* nombre) const { return visible(QString::fromUtf8(nombre)); }
    // A mouse click at the middle of the item, as the user gives one.
    void pulsar(QQuickItem* item);
    void pulsar(const QString& nombre);
    void pulsar(const char* nombre) { pulsar(QString::fromUtf8(nombre)); }
    void pulsar(const std::string& nombre) { pulsar(QString::fromStdString(nombre)); }
    // A double click at the middle of the item of that objectName.
    void dobleClic(const std::string& nombre);
    // The text an object shows, and the section the window shows.
    std::string texto(const char* nombre) const { return leer(nombre, "text").toString().toStdString(); }
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
    std::counting_semaphore<> paso_{0};
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

// Runs the event loop until cond holds; the bound only stops a broken test.
bool hasta(const std::function<bool()>& cond);

// With VORLANO_CAPTURAS set, writes the window there as
// "<nombre>-claro.png" and "<nombre>-oscuro.png", in the light and the dark
// palette, and checks that each shows more than a blank surface. Without
// it, does nothing.
void capturar(QQuickWindow* ventana, const std::string& nombre);
bool hayCapturas();

} // namespace pantallas
