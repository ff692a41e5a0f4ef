#include "Testing.h"

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

namespace {

class PreviewMesh : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override
    {
        const std::string path = std::string(PREVIEW_MESH_FOLDER "/preview") + GetParam() + ".x";
        const aiScene* scene =
            m_importer.ReadFile(path, aiProcess_ValidateDataStructure | aiProcess_Triangulate |
                                          aiProcess_JoinIdenticalVertices);
        ASSERT_NE(scene, nullptr) << m_importer.GetErrorString();
        ASSERT_EQ(scene->mNumMeshes, 1U);
        m_mesh = scene->mMeshes[0];
        ASSERT_TRUE(m_mesh->HasNormals() && m_mesh->HasTextureCoords(0));
    }

    [[nodiscard]] bool Is(const char* name) const { return std::string(GetParam()) == name; }
    [[nodiscard]] aiVector3D Uv(unsigned vertex) const { return m_mesh->mTextureCoords[0][vertex]; }

    Assimp::Importer m_importer;
    const aiMesh* m_mesh = nullptr;
};

TEST_P(PreviewMesh, IsAClosedShapeThatFacesOutward)
{
    double volume = 0.0;
    for (unsigned f = 0; f < m_mesh->mNumFaces; ++f) {
        const unsigned* corner = m_mesh->mFaces[f].mIndices;
        const aiVector3D& a = m_mesh->mVertices[corner[0]];
        const aiVector3D& b = m_mesh->mVertices[corner[1]];
        const aiVector3D& c = m_mesh->mVertices[corner[2]];
        aiVector3D outward = (b - a) ^ (c - a);
        volume += static_cast<double>(a * (b ^ c)) / 6.0;
        outward.Normalize();
        for (int i = 0; i < 3; ++i) {
            EXPECT_GT(outward * m_mesh->mNormals[corner[i]], 0.6F) << f;
        }
    }
    // Closed forms of the plain shapes, a little less for rounded edges and flat facets.
    const std::pair<const char*, double> volumes[] = {{"cube", std::pow(1.28, 3)},
                                                      {"cylinder", 3.1416 * 0.49 * 1.5},
                                                      {"sphere", 4.1888},
                                                      {"torus", 2 * 9.8696 * 0.68 * 0.0961},
                                                      {"cone", 3.1416 * 0.6724 * 1.7 / 3}};
    for (const auto& [name, expected] : volumes) {
        if (Is(name)) {
            EXPECT_NEAR(volume / expected, 0.98, 0.02);
        }
    }
}

TEST_P(PreviewMesh, HasUnitNormalsAndASizeLikeABall)
{
    float largest = 0.0F;
    for (unsigned v = 0; v < m_mesh->mNumVertices; ++v) {
        EXPECT_NEAR(m_mesh->mNormals[v].Length(), 1.0F, 1e-3F);
        largest = std::max(largest, m_mesh->mVertices[v].Length());
        EXPECT_GE(std::min(Uv(v).x, Uv(v).y), 0.0F);
        EXPECT_LE(Uv(v).y, 1.0F);
        EXPECT_LE(Uv(v).x, Is("torus") ? 2.0F : 1.01F);
    }
    EXPECT_GT(largest, 0.9F);
    EXPECT_LT(largest, 1.15F);
}

TEST_P(PreviewMesh, PictureIsUprightAndReadsFromLeftToRight)
{
    // In every triangle that faces the viewer, u grows to the right and v grows upward.
    for (unsigned f = 0; f < m_mesh->mNumFaces; ++f) {
        const unsigned* corner = m_mesh->mFaces[f].mIndices;
        const aiVector3D p = m_mesh->mVertices[corner[1]] - m_mesh->mVertices[corner[0]];
        const aiVector3D q = m_mesh->mVertices[corner[2]] - m_mesh->mVertices[corner[0]];
        const aiVector3D s = Uv(corner[1]) - Uv(corner[0]);
        const aiVector3D t = Uv(corner[2]) - Uv(corner[0]);
        EXPECT_GT(s.x * t.y - s.y * t.x, 0.0F) << "mirrored triangle " << f;
        aiVector3D outward = p ^ q;
        outward.Normalize();
        const bool near = m_mesh->mVertices[corner[0]].z > 0.0F;  // not the far side of a hole
        if (near && outward.z > 0.85F) {
            const float area = p.x * q.y - p.y * q.x;
            EXPECT_GT((s.x * q.y - t.x * p.y) / area, 0.0F) << f;
            EXPECT_GT((t.y * p.x - s.y * q.x) / area, 0.0F) << f;
        }
    }
}

TEST_P(PreviewMesh, SeamIsAtTheBack)
{
    if (Is("cube")) {
        return;  // a picture on each side has no seam
    }
    for (unsigned v = 0; v < m_mesh->mNumVertices; ++v) {
        const bool aside = std::fabs(m_mesh->mNormals[v].y) < 0.5F;
        const float last = Is("torus") ? 2.0F : 1.0F;
        if (aside && (Uv(v).x < 1e-4F || Uv(v).x > last - 1e-4F)) {
            EXPECT_LT(m_mesh->mVertices[v].z, 0.1F);
            EXPECT_NEAR(m_mesh->mVertices[v].x, 0.0F, 1e-3F);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, PreviewMesh,
                         testing::Values("cube", "cylinder", "sphere", "torus", "cone"),
                         [](const auto& row) { return std::string(row.param); });

}  // namespace
