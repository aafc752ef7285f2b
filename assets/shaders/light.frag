#version 110
// A point light: a circle round light_position that fades out by
// light_distance, lit over the ground's slopes.
uniform sampler2D texture1;
uniform sampler2D texture2;
uniform vec2 light_position;
uniform float light_distance;
uniform vec4 light_color;
varying vec2 position;

void main()
{
    vec2 away = position - light_position;
    float radius = max(light_distance, 0.001);
    float fade = clamp(1.0 - length(away) / radius, 0.0, 1.0);

    vec2 uv = gl_TexCoord[0].st;
    vec3 slope = texture2D(texture2, uv).rgb;
    vec3 normal = normalize(vec3((slope.rg - vec2(127.0 / 255.0)) * 8.0, slope.b));
    vec3 toLight = normalize(vec3(-away.x, away.y, 25.0));
    float diffuse = max(dot(normal, toLight), 0.0);

    vec3 ground = texture2D(texture1, uv).rgb;
    gl_FragColor = vec4(ground * light_color.rgb * diffuse * fade * fade * 2.0, 1.0);
}
