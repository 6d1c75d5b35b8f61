#pragma once

#include "platform/HvxUtility.h"

/// Registers the component under its identifier.
void RegisterHvxUtility();

/// The conversion utility.
class HvxUtilityComponent : public HvxUtility
{
public:
    void Hex2U(const QString& hex, QString& text) override;
    void U2A(const QString& text, QString& bytes) override;
    void A2U(const QString& bytes, QString& text) override;
    void GetBERData(const QString& reply, qint16 element, QString& payload) override;
};
