#include "map/fill/make_map.h"

#include "map/fill/map_fill.h"
#include "map/types/map_size_limits.h"

namespace quorvel {

NewMapSize SizeOfNewMap(const FillSettings& settings, const ClassDef* mapClass) {
  MapSizeLimits limits;
  GetMapSizeLimits(mapClass, limits);
  return {ClampNewMapSide(settings.width.value_or(limits.defaultWidth.value_or(0))),
          ClampNewMapSide(settings.height.value_or(limits.defaultHeight.value_or(0)))};
}

bool MakeEmptyMap(MapContents& map, NewMapSize size, std::string& errorText) {
  if (!CheckMap(map, size.width, size.height, errorText)) return false;
  MakeGrid(map, size.width, size.height);
  return true;
}

bool MakeMap(MapContents& map, const FillSettings& settings, Feedback& feedback, NewMapListener& listener,
             std::string& errorText) {
  const NewMapSize size = SizeOfNewMap(settings, map.m_pMapClass);
  if (!CheckFullMap(map, size.width, size.height, errorText)) return false;
  MakeGrid(map, size.width, size.height);
  listener.OnGridMade();
  FillMap(map, settings.global, settings.region, settings.seed.value_or(0), feedback, listener);
  return true;
}

}  // namespace quorvel
