#include "tests/support/GatewayFixture.h"

#include "database/DatabaseState.h"
#include "model/ModelState.h"

namespace {

void ResetState()
{
    Model().Database = nullptr;
    Database().DbObject.reset();
    Database().DatabaseOpen = false;
    Database().ScanRight = false;
    Database().EditRight = false;
}

} // namespace

GatewayFixture::GatewayFixture()
{
    ResetState();
    Database().DbObject = std::make_unique<DatabaseClass>();
    Model().Database = Database().DbObject.get();
    QObject::connect(Database().DbObject.get(), &DatabaseClass::SetMousePointer,
                     [this](int pointer) { Pointers << pointer; });
}

GatewayFixture::~GatewayFixture()
{
    ResetState();
}

DatabaseClass& GatewayFixture::Gateway() const
{
    return *Database().DbObject;
}

void GatewayFixture::Open()
{
    if (!Gateway().OpenDb())
        qFatal("The scripted database does not open.");
    Forget();
}

void GatewayFixture::Forget()
{
    Computer.Steps.clear();
    Operator.Boxes.clear();
    Component.Calls.clear();
    Pointers.clear();
}
