#include "UI/Models/EngineModel.h"

#include "Engine/QuitEngine.h"

namespace ambrel {

EngineModel::EngineModel(QuitEngine& engine, QObject* parent)
    : QObject(parent), engine_(engine),
      subscription_(engine.monitoredCount.subscribe([this](int) { monitoredCountChanged(); })) {}

int EngineModel::monitoredCount() const {
    return engine_.monitoredCount.get();
}

} // namespace ambrel
