layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
#ifdef COORDINATES_MESH
layout(location = 3) in vec2 uv;
#endif

uniform mat4 eyeFromMesh;
uniform mat3 eyeNormalFromMesh;
uniform mat4 clipFromEye;
uniform mat4 wrapFromMesh;
uniform mat3 wrapNormalFromMesh;

out vec3 eyePosition;
out vec3 eyeNormal;
#ifdef COORDINATES_MESH
out vec2 meshPlace;
#elif defined(COORDINATES_WRAP)
out vec3 wrapPosition;
out vec3 wrapNormal;
#endif

// Every peel must meet exactly the depths of the one before.
invariant gl_Position;

void main()
{
    vec4 eye = eyeFromMesh * vec4(position, 1.0);
    eyePosition = eye.xyz;
    eyeNormal = eyeNormalFromMesh * normal;
#ifdef COORDINATES_MESH
    meshPlace = vec2(uv.x, 1.0 - uv.y);
#elif defined(COORDINATES_WRAP)
    wrapPosition = (wrapFromMesh * vec4(position, 1.0)).xyz;
    wrapNormal = wrapNormalFromMesh * normal;
#endif
    gl_Position = clipFromEye * eye;
}
