#pragma once

#include <QObject>
#include <QtPlugin>

/// Gives the library's file a version record that can be read without loading it.
class VersionRecord : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "zelka.Control/1" FILE "ZelkaBrowser.json")
};
