in vec3 eyePosition;
in vec3 eyeNormal;

// Where a fragment lies in the images: x to the right and y down, one tile from 0 to 1, with its
// change from pixel to pixel. The changes follow from those of positions, so that the far side of a
// longitude, where the coordinates jump, is filtered like any other place.
struct Place {
    vec2 at;
    vec2 dx;
    vec2 dy;
};

const float halfTurn = 3.14159265;

// Longitude from the back to the right (x) over the front (z), 0 to 1.
float Longitude(vec3 p)
{
    return 0.5 + atan(p.x, p.z) / (2.0 * halfTurn);
}

float LongitudeChange(vec3 p, vec3 dp)
{
    return (p.z * dp.x - p.x * dp.z) / (max(dot(p.xz, p.xz), 1.0e-8) * 2.0 * halfTurn);
}

float LatitudeChange(vec3 p, vec3 dp)
{
    float around = max(length(p.xz), 1.0e-4);
    float widening = dot(p.xz, dp.xz) / around;
    return (p.y * widening - around * dp.y) / (dot(p, p) * halfTurn);
}

// The whole image around the direction p, its top edge at the upper pole.
Place OnSphere(vec3 p, vec3 dx, vec3 dy)
{
    return Place(vec2(Longitude(p), atan(length(p.xz), p.y) / halfTurn),
                 vec2(LongitudeChange(p, dx), LatitudeChange(p, dx)),
                 vec2(LongitudeChange(p, dy), LatitudeChange(p, dy)));
}

#if defined(COORDINATES_MESH) || defined(COORDINATES_WRAP)
// How tiles lie on what is unrolled; of the sides that face along x, y and z in a flat wrap.
uniform mat3x2 tiles[3];

Place Tiled(Place p, mat3x2 tile)
{
    mat2 way = mat2(tile);
    return Place(tile * vec3(p.at, 1.0), way * p.dx, way * p.dy);
}
#endif

#ifdef COORDINATES_MESH
in vec2 meshPlace;

Place SurfacePlace()
{
    return Tiled(Place(meshPlace, dFdx(meshPlace), dFdy(meshPlace)), tiles[0]);
}
#endif

#ifdef COORDINATES_WRAP
in vec3 wrapPosition;
in vec3 wrapNormal;
#endif

#if defined(COORDINATES_SPHERICAL) || defined(COORDINATES_CYLINDRICAL)
// One image from top to bottom, whose first and last rows do not meet, unless the material lays
// tiles of its own.
#define ENDS_BELOW (tiles[0] == mat3x2(1.0))

Place Ended(Place place)
{
    place.at.y = clamp(place.at.y, 1.0e-5, 1.0 - 1.0e-5);
    return Tiled(place, tiles[0]);
}
#endif

#ifdef COORDINATES_SPHERICAL
Place SurfacePlace()
{
    return Ended(OnSphere(wrapPosition, dFdx(wrapPosition), dFdy(wrapPosition)));
}
#endif

#ifdef COORDINATES_CYLINDRICAL
Place SurfacePlace()
{
    vec3 p = wrapPosition;
    vec3 dx = dFdx(p);
    vec3 dy = dFdy(p);
    return Ended(Place(vec2(Longitude(p), 0.5 - 0.5 * p.y),
                       vec2(LongitudeChange(p, dx), -0.5 * dx.y),
                       vec2(LongitudeChange(p, dy), -0.5 * dy.y)));
}
#endif

#ifdef COORDINATES_FLAT
// From the side of the box that the surface faces most, upright as seen from there.
Place SurfacePlace()
{
    vec3 facing = abs(wrapNormal);
    vec3 p = wrapPosition;
    vec3 dx = dFdx(p);
    vec3 dy = dFdy(p);
    if (facing.y > facing.x && facing.y > facing.z) {
        vec2 turn = vec2(1.0, sign(wrapNormal.y));
        return Tiled(Place(turn * p.xz, turn * dx.xz, turn * dy.xz), tiles[1]);
    }
    if (facing.x > facing.z) {
        vec2 turn = vec2(-sign(wrapNormal.x), -1.0);
        return Tiled(Place(turn * p.zy, turn * dx.zy, turn * dy.zy), tiles[0]);
    }
    vec2 turn = vec2(sign(wrapNormal.z), -1.0);
    return Tiled(Place(turn * p.xy, turn * dx.xy, turn * dy.xy), tiles[2]);
}
#endif
