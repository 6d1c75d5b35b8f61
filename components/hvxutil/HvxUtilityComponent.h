#pragma once

#include "platform/HvxUtility.h"

/// Number of the ComponentError that the conversion utility raises.
constexpr quint32 HvxUtilityRefused = 0x80040300;

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
