// The shard list owns a picture, so it lives apart from the GL-free records.
#include "data/images.h"
#include "render/texture_release.h"
#include "sim/effects.h"

ShardList::ShardList() { loadTexture(&texture, "p2.spg"); }

ShardList::~ShardList() { deleteTextures(1, &texture); }

void ShardList::add(float x, float y) { shards.emplace_back(x, y); }

void ShardList::update() { updateShards(shards); }
