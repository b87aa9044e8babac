// SPDX-License-Identifier: MIT
#include "accessible.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include "process/patience.h"

namespace quavix::test {
namespace {

constexpr const char* AccessibleInterface = "org.a11y.atspi.Accessible";
constexpr const char* ActionInterface = "org.a11y.atspi.Action";
constexpr const char* TextInterface = "org.a11y.atspi.Text";
constexpr const char* ValueInterface = "org.a11y.atspi.Value";

}  // namespace

QDBusMessage Accessible::Message(const char* interface, const char* method,
                                 const QVariantList& arguments) const {
    QDBusMessage message = QDBusMessage::createMethodCall(service_, path_, interface, method);
    message.setArguments(arguments);
    return message;
}

QVariant Accessible::Call(const char* interface, const char* method, const QVariantList& arguments) const {
    const QDBusMessage reply = bus_.call(Message(interface, method, arguments), QDBus::Block, PatienceMs);
    if (reply.type() != QDBusMessage::ReplyMessage)
        throw AccessibleError(path_ + " " + method + ": " + reply.errorMessage());
    return reply.arguments().value(0);
}

QVariant Accessible::Property(const char* interface, const char* name) const {
    return Call("org.freedesktop.DBus.Properties", "Get", {QString(interface), QString(name)})
        .value<QDBusVariant>()
        .variant();
}

QString Accessible::Name() const {
    return Property(AccessibleInterface, "Name").toString();
}

QString Accessible::Role() const {
    return Call(AccessibleInterface, "GetRoleName").toString();
}

bool Accessible::Has(AccessibleState state) const {
    constexpr int BitsOfWord = 32;
    const auto words = qdbus_cast<QList<uint>>(Call(AccessibleInterface, "GetState"));
    const int bit = static_cast<int>(state);
    return (words.value(bit / BitsOfWord) >> (bit % BitsOfWord) & 1U) != 0;
}

Accessible Accessible::Reference(const QDBusArgument& from) const {
    QString service;
    QDBusObjectPath path;
    from.beginStructure();
    from >> service >> path;
    from.endStructure();
    return {bus_, service, path.path()};
}

std::vector<Accessible> Accessible::References(const QDBusArgument& from) const {
    std::vector<Accessible> references;
    from.beginArray();
    while (!from.atEnd())
        references.push_back(Reference(from));
    from.endArray();
    return references;
}

std::vector<Accessible> Accessible::Children() const {
    return References(Call(AccessibleInterface, "GetChildren").value<QDBusArgument>());
}

std::vector<Accessible> Accessible::Related(uint relation) const {
    std::vector<Accessible> related;
    const auto relations = Call(AccessibleInterface, "GetRelationSet").value<QDBusArgument>();
    relations.beginArray();
    while (!relations.atEnd()) {
        uint kind = 0;
        relations.beginStructure();
        relations >> kind;
        const std::vector<Accessible> others = References(relations);
        relations.endStructure();
        if (kind == relation)
            related.insert(related.end(), others.begin(), others.end());
    }
    relations.endArray();
    return related;
}

QStringList Accessible::Actions() const {
    QStringList names;
    const auto actions = Call(ActionInterface, "GetActions").value<QDBusArgument>();
    actions.beginArray();
    while (!actions.atEnd()) {
        QString name;
        QString description;
        QString keys;
        actions.beginStructure();
        actions >> name >> description >> keys;
        actions.endStructure();
        names += name;
    }
    actions.endArray();
    return names;
}

void Accessible::Do(const QString& action) const {
    const qsizetype index = Actions().indexOf(action);
    if (index < 0)
        throw AccessibleError(Name() + " has no action " + action + ", but " + Actions().join(", "));
    bus_.send(Message(ActionInterface, "DoAction", {static_cast<int>(index)}));
}

QString Accessible::Text() const {
    const int length = Property(TextInterface, "CharacterCount").toInt();
    return Call(TextInterface, "GetText", {0, length}).toString();
}

void Accessible::SetText(const QString& text) const {
    Call("org.a11y.atspi.EditableText", "SetTextContents", {text});
}

double Accessible::Value() const {
    return Property(ValueInterface, "CurrentValue").toDouble();
}

void Accessible::SetValue(double value) const {
    Call("org.freedesktop.DBus.Properties", "Set",
         {QString(ValueInterface), QString("CurrentValue"), QVariant::fromValue(QDBusVariant(value))});
}

Accessible Accessible::CellAt(int row, int column) const {
    return Reference(Call("org.a11y.atspi.Table", "GetAccessibleAt", {row, column}).value<QDBusArgument>());
}

qint64 Accessible::ProcessId() const {
    return bus_.interface()->servicePid(service_).value();
}

std::vector<Accessible> AccessiblePrograms(const QDBusConnection& bus) {
    return Accessible(bus, "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root").Children();
}

}  // namespace quavix::test
