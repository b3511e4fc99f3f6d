#include "base/ResourcePlace.h"

ResourcePlace& TheResourcePlace() {
    static ResourcePlace place;
    return place;
}
