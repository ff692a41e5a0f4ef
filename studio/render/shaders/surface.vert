layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;

uniform mat4 eyeFromMesh;
uniform mat3 eyeNormalFromMesh;
uniform mat4 clipFromEye;

out vec3 eyePosition;
out vec3 eyeNormal;

// Every peel must meet exactly the depths of the one before.
invariant gl_Position;

void main()
{
    vec4 eye = eyeFromMesh * vec4(position, 1.0);
    eyePosition = eye.xyz;
    eyeNormal = eyeNormalFromMesh * normal;
    gl_Position = clipFromEye * eye;
}
