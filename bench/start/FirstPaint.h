// A plugin that any Qt program loads when told to by the environment: it ends the program once a table
// has been painted for the first time.
#pragma once

#include <QGenericPlugin>

class FirstPaint : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "FirstPaint.json")

public:
    QObject* create(const QString& key, const QString& settings) override;
};
