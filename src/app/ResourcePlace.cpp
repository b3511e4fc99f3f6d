#include "app/ResourcePlace.h"

ResourcePlace& TheResourcePlace() {
    static ResourcePlace place;
    return place;
}
