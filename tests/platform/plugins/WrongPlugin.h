#pragma once

#include <QObject>
#include <QtPlugin>

/// Lists a component, but is no plugin for components.
class WrongPlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "zelka.test.Wrong/1" FILE "WrongPlugin.json")
};
