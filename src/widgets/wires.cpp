#include "wires.h"

#include <QHash>
#include <QMetaMethod>

namespace
{

// Not valid if the object has no such signal or slot.
QMetaMethod findMethod(const QMetaObject& kind, const char* signature)
{
    const QByteArray name = QMetaObject::normalizedSignature(signature + 1);
    const int index =
        *signature - '0' == QSIGNAL_CODE ? kind.indexOfSignal(name) : kind.indexOfSlot(name);
    return kind.method(index);
}

// Every value that comes from the mixer cuts wires and joins them again, and to find a method by
// its name costs more than that: so each is looked for once.
QMetaMethod methodOf(const QObject* object, const char* signature)
{
    using Name = std::pair<const QMetaObject*, QByteArray>;
    static QHash<Name, QMetaMethod> known;
    if (object == nullptr || signature == nullptr)
        return {};
    const QMetaObject* const kind = object->metaObject();
    const auto length = static_cast<qsizetype>(qstrlen(signature));
    const auto found = known.constFind({kind, QByteArray::fromRawData(signature, length)});
    if (found != known.cend())
        return *found;
    const QMetaMethod method = findMethod(*kind, signature);
    known.insert({kind, QByteArray(signature, length)}, method);
    return method;
}

} // namespace

void Wire::connect() const
{
    const QMetaMethod from = methodOf(sender, signal);
    const QMetaMethod to = methodOf(receiver, slot);
    if (from.isValid() && to.isValid())
        QObject::connect(sender, from, receiver, to, Qt::UniqueConnection);
    else
        QObject::connect(sender, signal, receiver, slot, Qt::UniqueConnection); // warns
}

bool Wire::disconnect() const
{
    const QMetaMethod from = methodOf(sender, signal);
    const QMetaMethod to = methodOf(receiver, slot);
    if (from.isValid() && to.isValid())
        return QObject::disconnect(sender, from, receiver, to);
    return QObject::disconnect(sender, signal, receiver, slot);
}
