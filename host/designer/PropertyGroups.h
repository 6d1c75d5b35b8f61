#pragma once

#include <QDesignerPropertySheetExtension>
#include <QExtensionFactory>

/// Groups the control's properties in the property editor by what they are about.
///
/// The editor would group them by class, all of them in one. The sheet is the editor's own; only its groups
/// are set here, before anybody sees it.
class PropertyGroups : public QExtensionFactory
{
    Q_OBJECT

public:
    explicit PropertyGroups(QExtensionManager* manager);

protected:
    QObject* createExtension(QObject* object, const QString& iid, QObject* parent) const override;

private:
    /// The editor is being asked for its own sheet.
    mutable bool m_asking = false;
};
