#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

namespace tarvex::tests
{

/// An operator who answers the next file dialog with a name typed into it.
class TypedName : public QObject
{
public:
    explicit TypedName(const QString& name);

private:
    void Answer();

    QString name_;
    QTimer timer_;
};

} // namespace tarvex::tests
